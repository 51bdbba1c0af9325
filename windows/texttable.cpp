#include "windows/texttable.h"

namespace
{

QString tableLine(const QStringList &texts)
{
    QString line;
    for (const QString &text : texts) {
        if (&text != &texts.constFirst())
            line += QLatin1Char('\t');
        for (const QChar letter : text) {
            const bool breaks = letter == QLatin1Char('\t') || letter == QLatin1Char('\n') ||
                                letter == QLatin1Char('\r') || letter == QChar::LineSeparator ||
                                letter == QChar::ParagraphSeparator;
            line += breaks ? QLatin1Char(' ') : letter;
        }
    }
    return line + QLatin1Char('\n');
}

} // namespace

QString TextTable::tabSeparated() const
{
    QString text = tableLine(headings);
    for (const QStringList &row : rows)
        text += tableLine(row);
    return text;
}
