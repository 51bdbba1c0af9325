#include "devindex/devicetext.h"

#include <QTextCodec>

namespace
{

constexpr QChar SharpS(0x00DF);

QTextCodec *ibm850()
{
    static QTextCodec *const codec = QTextCodec::codecForName("IBM 850");
    return codec;
}

} // namespace

QString stringToUpper(const QString &text)
{
    static const QString placeholder = QStringLiteral("|#§§#|");
    QString upper = text;
    upper.replace(SharpS, placeholder);
    upper = upper.toUpper();
    return upper.replace(placeholder, SharpS);
}

QByteArray ibm850FromText(const QString &text)
{
    return ibm850()->fromUnicode(text);
}

QString textFromIbm850(const QByteArray &bytes)
{
    return ibm850()->toUnicode(bytes);
}

QByteArray pathSortKey(const QString &path)
{
    return ibm850FromText(stringToUpper(path));
}
