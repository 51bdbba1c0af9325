// The small pictures of the help pages.
#pragma once

#include <QSet>
#include <QSize>
#include <QString>

class QWidget;

/**
 * Saves each picture once a language, as FOLDER/LANGUAGE/NAME.png. What shows the product's name or
 * logos is of one branding only and goes to FOLDER/BRANDING_LANGUAGE instead.
 */
class HelpPictures
{
public:
    /** Fits beside the scroll bar of the help window; words stay readable: nothing is scaled. */
    static constexpr QSize roomOnAPage{640, 420};

    explicit HelpPictures(const QString &folder);

    /** A window in a size that suits a page, which it leaves again; or a part of a window. */
    void take(QWidget *widget, const QString &name, const QString &language);

private:
    QString m_folder;
    QSet<QString> m_taken;
};
