// The box at the end of a run with problems.
#pragma once

#include "library/runreport.h"

#include <QMessageBox>

#include <memory>

class FileListDialog;
class QPushButton;

/** Tells how many songs are concerned; a button leads to the list of them. */
class RunReportBox : public QMessageBox
{
    Q_OBJECT

public:
    /** The report must not be empty. */
    explicit RunReportBox(const RunReport &report, QWidget *parent = nullptr);

    /** Shows the box, and after it the list if it is asked for; nothing for an empty report. */
    static void tell(const RunReport &report, QWidget *parent);

    /** The list: each song with what the report says about it. */
    static std::unique_ptr<FileListDialog> details(const RunReport &report,
                                                   QWidget *parent = nullptr);

private:
    QPushButton *const m_details;
};
