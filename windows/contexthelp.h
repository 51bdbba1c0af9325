// F1 in a window opens the section of the help that is about the window.
#pragma once

#include <QObject>
#include <QPointer>
#include <QStringList>

class HelpDialog;

QT_BEGIN_NAMESPACE
class QWidget;
QT_END_NAMESPACE

/**
 * As long as it lives, F1 works in every dialog. The main window's F1 is an entry of its menu,
 * which gets the key first.
 */
class ContextHelp : public QObject
{
public:
    explicit ContextHelp(QObject *parent);
    ~ContextHelp() override;

    /**
     * The section about the window; where it has none, that of the window which opened it. Empty
     * for the help window itself, for menus and other pop-ups.
     */
    static QString sectionOf(const QWidget *window);

    /** Every section that a window leads to. */
    static QStringList sections();

    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void show(QWidget *window, const QString &section);

    QPointer<HelpDialog> m_help; ///< on the screen
};
