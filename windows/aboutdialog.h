// Version, build date and the maker's addresses.
#pragma once

#include <QDialog>
#include <QScopedPointer>

QT_BEGIN_NAMESPACE
namespace Ui
{
class AboutDialog;
}
QT_END_NAMESPACE

class AboutDialog : public QDialog
{
    Q_OBJECT

public:
    explicit AboutDialog(QWidget *parent = nullptr);
    ~AboutDialog() override;

protected:
    void changeEvent(QEvent *event) override;

private:
    void showTexts();

    const QScopedPointer<Ui::AboutDialog> ui;
};
