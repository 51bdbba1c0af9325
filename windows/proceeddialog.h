// The summary at the end of an import, with the question whether to synchronise at once.
#pragma once

#include <QDialog>
#include <QScopedPointer>

QT_BEGIN_NAMESPACE
namespace Ui
{
class ProceedDialog;
}
QT_END_NAMESPACE

/**
 * The two buttons are bound to nothing: the dialog ends through its close control or Escape, which
 * reject it.
 */
class ProceedDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ProceedDialog(QWidget *parent = nullptr);
    ~ProceedDialog() override;

    /** Shows how many files were songs, how many of these the maker signed, and how many no songs.
     */
    void setFilesCount(int valid, int kravo, int bad);

    /** False once the user ticked that the message must not come again. */
    bool getShowAgainValue() const;

protected:
    void changeEvent(QEvent *event) override;

private:
    void showCounts();

    const QScopedPointer<Ui::ProceedDialog> ui;
    int m_valid = 0;
    int m_kravo = 0;
    int m_bad = 0;
};
