// Shows the help page in the language of the interface.
#pragma once

#include <QDialog>
#include <QScopedPointer>

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

protected:
    void changeEvent(QEvent *event) override;

private:
    const QScopedPointer<Ui::HelpDialog> ui;
};
