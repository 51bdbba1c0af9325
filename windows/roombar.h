// A bar that shows how full a memory is and how full it would get.
#pragma once

#include <QWidget>

/** Used and needed space from the left, free space at the right. */
class RoomBar : public QWidget
{
    Q_OBJECT

public:
    explicit RoomBar(QWidget *parent = nullptr);

    /** All in bytes; needed may be more than is free, and is then painted as a warning. */
    void setRoom(qint64 total, qint64 free, qint64 needed);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    qint64 m_total = 0;
    qint64 m_free = 0;
    qint64 m_needed = 0;
};
