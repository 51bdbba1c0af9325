#include "windows/plaintooltip.h"

QString plainToolTip(const QString &text)
{
    return text.isEmpty() ? QString() : QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}
