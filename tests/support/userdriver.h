// Does with the windows of the program what a user does: picks files and folders, answers
// questions.
#pragma once

#include "support/modalanswers.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QQueue>

/** The widget of this object name in the window; the test ends when there is none. */
template <typename Widget>
Widget *child(const QWidget *window, const char *name)
{
    auto *const found = window->findChild<Widget *>(QString::fromLatin1(name));
    if (found == nullptr)
        qFatal("no widget %s", name);
    return found;
}

/** Clicks when the current event is done: the click may open a window of its own. */
inline void clickLater(QWidget *button)
{
    QTimer::singleShot(0, button, [button] { QTest::mouseClick(button, Qt::LeftButton); });
}

/** How often this window was asked for its next step. */
inline int nextStep(QWidget *window)
{
    const int step = window->property("step").toInt();
    window->setProperty("step", step + 1);
    return step;
}

/**
 * Answers file dialogs with the paths that were laid out for them, in turn; a file dialog for which
 * nothing was laid out is cancelled. The application must not use native dialogs
 * (Qt::AA_DontUseNativeDialogs).
 */
class UserDriver : public ModalAnswers
{
public:
    UserDriver()
    {
        add([this](QWidget *window) { return answerFileDialog(window); });
    }

    /** The next file dialog gets these paths (files to open, one folder, or one name to save). */
    void pick(const QStringList &paths) { m_picks.enqueue(paths); }

    /** True when every pick was asked for. */
    bool allPicked() const { return m_picks.isEmpty(); }

private:
    bool answerFileDialog(QWidget *window)
    {
        auto *const dialog = qobject_cast<QFileDialog *>(window);
        if (dialog == nullptr)
            return false;
        if (m_picks.isEmpty()) {
            dialog->reject();
            return true;
        }
        const QStringList paths = m_picks.dequeue();
        // The dialog adds files of the same names in the folder that it shows.
        if (paths.size() > 1)
            dialog->setDirectory(QFileInfo(paths.constFirst()).path());
        QStringList quoted;
        for (const QString &path : paths)
            quoted << QLatin1Char('"') + path + QLatin1Char('"');
        const bool several = quoted.size() > 1;
        const QString text = quoted.join(QLatin1Char(' '));
        dialog->findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))
            ->setText(several ? text : text.mid(1, text.size() - 2));
        QMetaObject::invokeMethod(dialog, "accept");
        return true;
    }

    QQueue<QStringList> m_picks;
};
