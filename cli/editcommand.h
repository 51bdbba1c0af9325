// kavena edit: the edit of several songs, and names of files made of their data.
#pragma once

#include "cli/command.h"
#include "cli/commandhistory.h"
#include "library/severalpreview.h"

#include <QHash>
#include <QList>
#include <QString>

class EditCommand : public Command
{
    Q_DECLARE_TR_FUNCTIONS(EditCommand)

public:
    using Command::Command;

    ExitStatus run() override;

private:
    bool load();
    void edit();
    void rename();
    void tellFit(const SeveralSong &song);
    void tellChanges(const SeveralSong &song);
    void tellFailure(const QString &path, const QString &reason);
    QString given(const QString &path) const { return m_given.value(path, path); }

    CommandHistory m_history{m_request, m_terminal};
    QList<SongInfo> m_songs;         ///< with absolute paths; what the files hold at each moment
    QHash<QString, QString> m_given; ///< the paths as the user gave them
    bool m_isRefused = false;        ///< nothing more may be changed
};
