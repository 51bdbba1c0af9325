// Asks whether one file may be changed: yes, yes to all, no, no to all.
#pragma once

#include <QDialog>
#include <QScopedPointer>

QT_BEGIN_NAMESPACE
namespace Ui
{
class NoCopyrightDialog;
}
QT_END_NAMESPACE

/**
 * exec() returns one of the answers below. Closing the dialog without a button gives 0, the same as
 * "Si": callers take it as yes. The caller interprets the answer and remembers the "all" ones.
 */
class NoCopyrightDialog : public QDialog
{
    Q_OBJECT

public:
    enum Answer { Yes = 0, YesAll = 1, No = 2, NoAll = 3 };

    explicit NoCopyrightDialog(QWidget *parent = nullptr);
    ~NoCopyrightDialog() override;

    /** Shows the file that the question is about. */
    void setFilename(const QString &fileName);

    /** Replaces the question. */
    void setMessage(const QString &message);

    /** True leaves only "Si" and "No" to choose from. */
    void setYesNoOnly(bool yesNoOnly);

protected:
    void changeEvent(QEvent *event) override;

private slots:
    void on_yesPushButton_clicked();
    void on_yesAllPushButton_clicked();
    void on_noPushButton_clicked();
    void on_noAllPushButton_clicked();

private:
    const QScopedPointer<Ui::NoCopyrightDialog> ui;
    QString m_fileName; ///< shown again after the form was retranslated
    QString m_message;
    bool m_yesNoOnly = false;
};
