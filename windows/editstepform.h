// The fields of one step of an edit of several songs.
#pragma once

#include "library/editstep.h"

#include <QScopedPointer>
#include <QWidget>

QT_BEGIN_NAMESPACE
namespace Ui
{
class EditStepForm;
}
QT_END_NAMESPACE

class EditStepForm : public QWidget
{
    Q_OBJECT

public:
    /** The kinds of steps, in the order in which they are offered. */
    enum class Kind { FromName, Value, Replace, LetterCase, Strip, Swap, FromList };
    static constexpr int kinds = 7;

    explicit EditStepForm(Kind kind, QWidget *parent = nullptr);
    ~EditStepForm() override;

    /** The kind in the user's words. */
    static QString kindName(Kind kind);

    Kind kind() const { return m_kind; }

    /** What the fields say now. */
    EditStep step() const;

    /** What the Tab key reaches, in its order. */
    QList<QWidget *> tabStops() const;

    /** Reads the list at the path. */
    void setList(const QString &path);

signals:
    /** The step is another one now. */
    void changed();

private:
    void fillIn();
    void showRows();
    void connectFields();
    void browse();
    void offerValues();
    QList<EditStep::Field> chosenFields() const;

    const QScopedPointer<Ui::EditStepForm> ui;
    const Kind m_kind;
    CsvList::Read m_list;
};
