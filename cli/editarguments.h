// Reads the steps of kavena edit, whose order counts.
#pragma once

#include "library/editstep.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QList>
#include <QString>

#include <optional>

/**
 * Takes the options of the steps out of the arguments, each with the values behind it as they
 * stand: a value may begin with "-".
 */
class EditArguments
{
    Q_DECLARE_TR_FUNCTIONS(EditArguments)

public:
    /** The arguments behind the program's name. */
    explicit EditArguments(const QList<QByteArray> &arguments);

    /** True when the arguments name this command. */
    bool isEdit() const { return m_isEdit; }

    QList<EditStep> steps;
    std::optional<QString> newNames; ///< the pattern of the files' new names
    bool shortNames = false;
    bool apply = false;
    QList<QByteArray> others; ///< all other arguments, in their order
    QString error;            ///< a sentence for the user; empty when the steps can be used

private:
    struct Option;

    void take(const Option &option, const QList<QByteArray> &bytes);
    void add(const Option &option, EditStep::What what);
    QList<EditStep::Field> fieldsOf(const Option &option, const QString &text);

    bool m_isEdit = false;
    bool m_ignoresCase = false;
};
