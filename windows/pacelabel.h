// The text of a progress dialog, with a line below it about the job's pace.
#pragma once

#include <QLabel>

/** The room for the line is there from the beginning, so that the dialog does not jump. */
class PaceLabel : public QLabel
{
    Q_OBJECT

public:
    explicit PaceLabel(const QString &text);

    void setPace(const QString &pace);

    QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    QLabel *const m_pace;
};
