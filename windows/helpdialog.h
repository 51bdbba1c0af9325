// Shows the help page in the language of the interface, and finds words in it.
#pragma once

#include <QDialog>
#include <QScopedPointer>
#include <QTextCursor>

QT_BEGIN_NAMESPACE
namespace Ui
{
class HelpDialog;
}
QT_END_NAMESPACE

class HelpDialog : public QDialog
{
    Q_OBJECT

public:
    explicit HelpDialog(QWidget *parent = nullptr);
    ~HelpDialog() override;

    /**
     * Shows the German page when the stored language is German or none is stored, else the English
     * one. A page that is missing leaves the text as it is.
     */
    void loadHelp();

    /** Scrolls to the section of that name; an unknown one changes nothing. */
    void showSection(const QString &section);

protected:
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum class Direction { Here, Next, Previous };

    void find(Direction direction);
    void tellHit(const QTextCursor &hit);

    const QScopedPointer<Ui::HelpDialog> ui;
};
