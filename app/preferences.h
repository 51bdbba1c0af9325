// What the user sets in the menu of preferences.
#pragma once

#include <QString>

QT_BEGIN_NAMESPACE
class QSettings;
namespace Ui
{
class MainWindow;
}
QT_END_NAMESPACE

/** Keeps the check marks of the menu and the stored settings the same. */
class Preferences
{
public:
    /** Form and settings must outlive the object. */
    Preferences(const Ui::MainWindow &form, QSettings &settings);

    /** Checks what is stored; for the start of the program. */
    void show();

    /** Stores the language, one of `translation`, and changes all texts to it. */
    void setLanguage(const QString &language);

    /** Whether to ask before files without the maker's signature are changed. */
    bool copyrightAsk() const;
    void setCopyrightAsk(bool ask);

    /** Whether to show the changes before a synchronisation makes them. */
    bool previewChanges() const;
    void setPreviewChanges(bool preview);

private:
    void checkLanguage(const QString &language);
    void checkCopyrightAsk(bool ask);

    const Ui::MainWindow &m_form;
    QSettings &m_settings;
};
