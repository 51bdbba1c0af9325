// Asks for a new name of a song on a memory.
#pragma once

#include <QDialog>
#include <QString>

QT_BEGIN_NAMESPACE
class QLabel;
class QLineEdit;
class QPushButton;
QT_END_NAMESPACE

/** Only a name that the player can show can be accepted; of any other the dialog tells why. */
class RenameSongDialog : public QDialog
{
    Q_OBJECT

public:
    /** For the song of this path on the memory. */
    RenameSongDialog(const QString &root, const QString &path, QWidget *parent = nullptr);

    /** The name that was entered, with the song's suffix. */
    QString newName() const;

private:
    void judge();

    const QString m_root;
    const QString m_path;
    QString m_suffix; ///< with its dot
    QLineEdit *const m_name;
    QLabel *const m_reason;
    QPushButton *m_rename = nullptr;
};
