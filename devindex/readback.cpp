#include "devindex/readback.h"

#include "devindex/contentcomparer.h"

bool readBackMatches(const QString &copy, const QString &source)
{
    return ContentComparer(ContentComparer::Source::Medium).compare(source, copy) ==
           ContentComparer::Result::Same;
}
