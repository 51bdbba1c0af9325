#include "devindex/namekey.h"

QString nameKey(const QString &path)
{
    QString key = path.normalized(QString::NormalizationForm_C);
    for (QChar &character : key)
        character = character.toCaseFolded();
    return key;
}
