// The frame that shows where songs can be dropped.
#pragma once

#include <QFrame>

/**
 * A dashed frame in the colours of the desktop, which fills itself while something that may be
 * dropped is dragged over the window. The window takes the drop.
 */
class DropZone : public QFrame
{
    Q_OBJECT

public:
    explicit DropZone(QWidget *parent = nullptr);

    void setHighlighted(bool highlighted);
    bool isHighlighted() const { return m_isHighlighted; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    bool m_isHighlighted = false;
};
