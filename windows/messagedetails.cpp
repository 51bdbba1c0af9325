#include "windows/messagedetails.h"

#include <QMessageBox>
#include <QTextEdit>

namespace
{

constexpr int shownCharacters = 70;
constexpr int shownLines = 12;

} // namespace

void setDetails(QMessageBox &box, const QStringList &lines)
{
    if (lines.isEmpty())
        return;
    box.setDetailedText(lines.join(QLatin1Char('\n')));
    if (auto *const field = box.findChild<QTextEdit *>())
        field->setFixedSize(shownCharacters * field->fontMetrics().averageCharWidth(),
                            shownLines * field->fontMetrics().lineSpacing());
}
