#include "app/preferences.h"

#include "library/branding.h"
#include "library/settings.h"
#include "windows/translation.h"

#include "ui_mainwindow.h"

#include <QSettings>

Preferences::Preferences(const Ui::MainWindow &form, QSettings &settings)
    : m_form(form)
    , m_settings(settings)
{
}

void Preferences::show()
{
    checkLanguage(m_settings.value(settings::language, branding().firstLanguage()).toString());
    checkCopyrightAsk(copyrightAsk());
    m_form.actionPreviewChanges->setChecked(previewChanges());
}

void Preferences::setLanguage(const QString &language)
{
    m_settings.setValue(settings::language, language);
    checkLanguage(language);
    translation::use(language);
}

void Preferences::checkLanguage(const QString &language)
{
    const bool italian = language == languages::italian;
    const bool german = language == languages::german;
    m_form.actionItalian->setChecked(italian);
    m_form.actionGerman->setChecked(german);
    m_form.actionEnglish->setChecked(!italian && !german);
}

bool Preferences::copyrightAsk() const
{
    return m_settings.value(settings::copyrightAsk, branding().asksCopyright).toBool();
}

void Preferences::setCopyrightAsk(bool ask)
{
    m_settings.setValue(settings::copyrightAsk, ask);
    checkCopyrightAsk(ask);
}

void Preferences::checkCopyrightAsk(bool ask)
{
    m_form.actionCopyrightYes->setChecked(ask);
    m_form.actionCopyrightNo->setChecked(!ask);
}

bool Preferences::previewChanges() const
{
    return m_settings.value(settings::previewChanges, false).toBool();
}

void Preferences::setPreviewChanges(bool preview)
{
    m_settings.setValue(settings::previewChanges, preview);
}
