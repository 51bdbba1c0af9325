// What stands in the place of the list when no song of it passes the filter.
#pragma once

#include <QFrame>

QT_BEGIN_NAMESPACE
class QLabel;
class QPushButton;
QT_END_NAMESPACE

/** Says that there are songs all the same, and offers the way back to them. */
class NoMatchPage : public QFrame
{
    Q_OBJECT

public:
    explicit NoMatchPage(QWidget *parent = nullptr);

    /** How many songs the list holds. */
    void setSongs(int songs);

signals:
    /** All songs are to be shown. */
    void clearWanted();

protected:
    void changeEvent(QEvent *event) override;

private:
    void setTexts();

    QLabel *const m_title;
    QLabel *const m_text;
    QPushButton *const m_clear;
    int m_songs = 0;
};
