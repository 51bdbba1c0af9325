// Edges of fields and boxes that can be seen on a dark desktop.
#pragma once

#include <QProxyStyle>

/**
 * Qt's own style makes edges darker than the window. Where the window is dark itself, boxes, fields
 * and buttons get a second, lighter edge. Other styles draw as they do.
 */
class VisibleOutlines : public QProxyStyle
{
    Q_OBJECT

public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                            QPainter *painter, const QWidget *widget = nullptr) const override;

    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
                    const QWidget *widget = nullptr) const override;

private:
    bool isNeeded(const QPalette &palette) const;
};
