#include "demo/helppictures.h"

#include "library/branding.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>
#include <QWidget>

namespace
{

/** A list needs some rows; what has many columns is scaled down instead. */
QSize roomFor(const QString &name)
{
    if (name == QLatin1String("main") || name.startsWith(QLatin1String("memorysongs")))
        return {640, 600};
    if (name == QLatin1String("preparetags"))
        return {860, 400};
    return HelpPictures::roomOnAPage;
}

bool isOfTheBranding(const QString &name)
{
    static const QSet<QString> names{QStringLiteral("main"), QStringLiteral("memory"),
                                     QStringLiteral("menulanguage"), QStringLiteral("shortcuts"),
                                     QStringLiteral("shorten")};
    return names.contains(name);
}

} // namespace

HelpPictures::HelpPictures(const QString &folder)
    : m_folder(folder)
{
}

void HelpPictures::take(QWidget *widget, const QString &name, const QString &language)
{
    const QString place =
        isOfTheBranding(name) ? QFileInfo(branding().helpPictures).fileName() + language : language;
    const QString file = QStringLiteral("%1/%2/%3.png").arg(m_folder, place, name);
    if (m_taken.contains(file))
        return;
    m_taken.insert(file);

    const QSize before = widget->size();
    const QSize wanted = before.boundedTo(roomFor(name))
                             .expandedTo(widget->minimumSizeHint())
                             .expandedTo(widget->minimumSize());
    const bool isResized = widget->isWindow() && wanted != before;
    if (isResized)
        widget->resize(wanted);
    QTest::qWait(100); // the window manager has its say, and the labels get room for their texts
    if (!QDir().mkpath(QFileInfo(file).path()) || !widget->grab().save(file))
        qFatal("cannot write %s", qPrintable(file));
    if (isResized) {
        widget->resize(before);
        QTest::qWait(100);
    }
}
