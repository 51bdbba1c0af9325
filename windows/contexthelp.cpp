#include "windows/contexthelp.h"

#include "windows/helpdialog.h"

#include <QApplication>
#include <QDialog>
#include <QHash>
#include <QKeyEvent>

namespace
{

const QString startOfPage = QStringLiteral("top");

/** What messages, lists of files and the like are about that belong to the main window. */
const QString troubles = QStringLiteral("trouble");

/** By the names of the windows' classes. */
const QHash<QByteArray, QString> &sectionsOfWindows()
{
    static const QHash<QByteArray, QString> sections{
        {"AboutDialog", startOfPage},
        {"BackupDialog", QStringLiteral("backup")},
        {"CatalogueDialog", QStringLiteral("catalogue")},
        {"CatalogueEntryDialog", QStringLiteral("catalogue")},
        {"ChangePreviewDialog", QStringLiteral("sync")},
        {"DataEditDialog", QStringLiteral("edit")},
        {"EditSeveralDialog", QStringLiteral("several")},
        {"FillFromMusicDialog", QStringLiteral("measure")},
        {"HistoryDialog", QStringLiteral("history")},
        {"IndexDialog", QStringLiteral("optimise")},
        {"LibrariesDialog", startOfPage},
        {"MemoryWindow", QStringLiteral("contents")},
        {"NoCopyrightDialog", QStringLiteral("copyright")},
        {"PrepareTagsDialog", QStringLiteral("tags")},
        {"ProceedDialog", QStringLiteral("import")},
        {"QPrintDialog", QStringLiteral("output")},
        {"QProgressDialog", QStringLiteral("progress")},
        {"RenameSeveralDialog", QStringLiteral("several")},
        {"RenameSongDialog", QStringLiteral("contents")},
        {"RunReportBox", QStringLiteral("unsaved")},
        {"ShortcutsDialog", QStringLiteral("keys")},
        {"SongsListDialog", QStringLiteral("list")},
        {"TakingBack", QStringLiteral("history")},
        {"TransferPlanDialog", QStringLiteral("plan")},
        {"UnreadableFilesDialog", QStringLiteral("import")},
    };
    return sections;
}

/** The section of the first of the window's classes that has one. */
QString ownSection(const QWidget *window)
{
    for (const QMetaObject *kind = window->metaObject(); kind != nullptr;
         kind = kind->superClass()) {
        QString section = sectionsOfWindows().value(kind->className());
        if (!section.isEmpty())
            return section;
    }
    return {};
}

} // namespace

ContextHelp::ContextHelp(QObject *parent)
    : QObject(parent)
{
    qApp->installEventFilter(this);
}

ContextHelp::~ContextHelp()
{
    delete m_help;
}

QString ContextHelp::sectionOf(const QWidget *window)
{
    const bool isPopup = window->windowType() == Qt::Popup;
    if (isPopup || qobject_cast<const HelpDialog *>(window) != nullptr)
        return {};
    for (const QWidget *asked = window; asked != nullptr;
         asked = asked->parentWidget() != nullptr ? asked->parentWidget()->window() : nullptr) {
        QString section = ownSection(asked);
        if (!section.isEmpty())
            return section;
    }
    return qobject_cast<const QDialog *>(window) != nullptr ? troubles : QString();
}

QStringList ContextHelp::sections()
{
    QStringList all = sectionsOfWindows().values();
    all.removeDuplicates();
    return all;
}

bool ContextHelp::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType())
        return false;
    const auto *const key = static_cast<QKeyEvent *>(event);
    if (key->key() != Qt::Key_F1 || key->modifiers() != Qt::NoModifier)
        return false;
    QWidget *const window = static_cast<QWidget *>(watched)->window();
    const QString section = sectionOf(window);
    if (section.isEmpty())
        return false;
    show(window, section);
    return true;
}

/** Does not wait for the window's end: a job that the user waits for in it goes on. */
void ContextHelp::show(QWidget *window, const QString &section)
{
    delete m_help;
    m_help = new HelpDialog(window);
    m_help->setAttribute(Qt::WA_DeleteOnClose);
    m_help->show();
    m_help->showSection(section);
}
