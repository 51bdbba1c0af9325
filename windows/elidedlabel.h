// A label for texts of any length, such as paths.
#pragma once

#include <QLabel>

/**
 * Shows as much of its text as fits, with "…" in the middle, so that the folder and the file's name
 * in a long path stay readable and the dialog stays narrow. text() is always the whole text; the
 * tool tip shows it while it is cut.
 */
class ElidedLabel : public QLabel
{
    Q_OBJECT

public:
    explicit ElidedLabel(QWidget *parent = nullptr);

    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    QString shownText() const;
};
