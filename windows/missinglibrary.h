// Tells why the list of songs cannot be used when its databases could not be opened.
#pragma once

#include <QObject>

class BusyState;
class QLabel;
class QStatusBar;

/** Shown in the status bar in place of the summary of the songs. */
class MissingLibrary : public QObject
{
    Q_OBJECT

public:
    /** The status bar owns the object. */
    explicit MissingLibrary(QStatusBar *bar);

    /** Writes the text of the status bar in the present language. */
    void refresh();

    /** Tells the reason in a box over the window, once that is on the screen. */
    void tell(QWidget *window, BusyState &busy);

private:
    static QString reason();

    QLabel *const m_label;
};
