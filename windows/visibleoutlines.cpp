#include "windows/visibleoutlines.h"

#include <QPainter>
#include <QPalette>
#include <QStyleOptionComplex>
#include <QWidget>

namespace
{

constexpr int halfOfLightness = 128;
constexpr qreal roundness = 2;

/** Between the window and its text: enough to be seen, too little to be looked at. */
QColor edgeColour(const QPalette &palette)
{
    constexpr qreal textShare = 0.45;
    const QColor text = palette.color(QPalette::WindowText);
    const QColor window = palette.color(QPalette::Window);
    const auto mixed = [](float a, float b) {
        return static_cast<float>(textShare * qreal{a} + (1 - textShare) * qreal{b});
    };
    return QColor::fromRgbF(mixed(text.redF(), window.redF()),
                            mixed(text.greenF(), window.greenF()),
                            mixed(text.blueF(), window.blueF()));
}

void drawEdge(QPainter &painter, const QStyleOption &option, const QRectF &place, qreal radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, radius > 0);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(edgeColour(option.palette), 1));
    constexpr qreal halfLine = 0.5;
    painter.drawRoundedRect(place.adjusted(halfLine, halfLine, -halfLine, -halfLine), radius,
                            radius);
    painter.restore();
}

/** The line on which the handle of a slider runs. */
void drawGroove(QPainter &painter, const QStyleOption &option, const QRectF &place,
                const QRectF &handle)
{
    constexpr qreal halfWidth = 2;
    const bool isFlat = place.width() > place.height();
    const QPointF middle = place.center();
    const QRectF line =
        isFlat ? QRectF(place.left(), middle.y() - halfWidth, place.width(), 2 * halfWidth)
               : QRectF(middle.x() - halfWidth, place.top(), 2 * halfWidth, place.height());
    painter.save();
    painter.setClipRegion(QRegion(option.rect).subtracted(handle.toAlignedRect()),
                          Qt::IntersectClip);
    drawEdge(painter, option, line, halfWidth);
    painter.restore();
}

/** True for what shows by another colour that it has the focus. */
bool hasFocusEdge(const QStyleOption &option, QStyle::State shown = QStyle::State_HasFocus)
{
    return option.state.testFlags(shown | QStyle::State_HasFocus | QStyle::State_Enabled);
}

/** True for the button that Return presses, which has an edge of its own colour. */
bool isDefaultButton(const QStyleOption &option)
{
    const auto *const button = qstyleoption_cast<const QStyleOptionButton *>(&option);
    return button != nullptr && button->features.testFlag(QStyleOptionButton::DefaultButton);
}

} // namespace

bool VisibleOutlines::isNeeded(const QPalette &palette) const
{
    return palette.color(QPalette::Window).lightness() < halfOfLightness &&
           baseStyle()->name().compare(QLatin1String("fusion"), Qt::CaseInsensitive) == 0;
}

void VisibleOutlines::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                    QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (option == nullptr || painter == nullptr || !isNeeded(option->palette))
        return;
    const QRectF place = option->rect;
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_Frame:
    case PE_FrameMenu:
        drawEdge(*painter, *option, place, 0);
        break;
    case PE_IndicatorRadioButton:
        drawEdge(*painter, *option, place, qMin(place.width(), place.height()) / 2);
        break;
    case PE_PanelButtonTool:
        drawEdge(*painter, *option, place, roundness);
        break;
    case PE_FrameLineEdit:
        if (!hasFocusEdge(*option))
            drawEdge(*painter, *option, place, roundness);
        break;
    case PE_PanelButtonCommand:
        if (!hasFocusEdge(*option, State_KeyboardFocusChange) && !isDefaultButton(*option))
            drawEdge(*painter, *option, place, roundness);
        break;
    default:
        break;
    }
}

void VisibleOutlines::drawControl(ControlElement element, const QStyleOption *option,
                                  QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawControl(element, option, painter, widget);
    if (option == nullptr || painter == nullptr || !isNeeded(option->palette))
        return;
    const bool isChosenTab = element == CE_TabBarTabShape && option->state.testFlag(State_Selected);
    if (element == CE_ProgressBarGroove || isChosenTab)
        drawEdge(*painter, *option, option->rect, roundness);
}

void VisibleOutlines::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                         QPainter *painter, const QWidget *widget) const
{
    QProxyStyle::drawComplexControl(control, option, painter, widget);
    if (option == nullptr || painter == nullptr || !isNeeded(option->palette))
        return;
    const auto part = [&](SubControl wanted) {
        return QRectF(subControlRect(control, option, wanted, widget));
    };
    switch (control) {
    case CC_ComboBox:
        if (!hasFocusEdge(*option, State_KeyboardFocusChange))
            drawEdge(*painter, *option, option->rect, roundness);
        break;
    case CC_SpinBox:
        if (!hasFocusEdge(*option))
            drawEdge(*painter, *option, option->rect, roundness);
        break;
    case CC_ScrollBar:
        drawEdge(*painter, *option, part(SC_ScrollBarSlider), 0);
        break;
    case CC_Slider:
        drawGroove(*painter, *option, part(SC_SliderGroove), part(SC_SliderHandle));
        drawEdge(*painter, *option, part(SC_SliderHandle), roundness);
        break;
    default:
        break;
    }
}

int VisibleOutlines::pixelMetric(PixelMetric metric, const QStyleOption *option,
                                 const QWidget *widget) const
{
    const int pixels = QProxyStyle::pixelMetric(metric, option, widget);
    // A menu draws no frame where there is no room for one, and asks without an option.
    return metric == PM_MenuPanelWidth && widget != nullptr && isNeeded(widget->palette())
               ? qMax(pixels, 1)
               : pixels;
}
