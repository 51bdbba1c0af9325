#include "formats/publisher.h"

bool publisher::isNamedIn(const QString &copyright, QLatin1String name)
{
    return copyright.toUpper().contains(name);
}
