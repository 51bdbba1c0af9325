// What stands in the place of the list while there is no song in it: how to begin.
#pragma once

#include <QList>
#include <QScopedPointer>
#include <QStringList>
#include <QWidget>

QT_BEGIN_NAMESPACE
namespace Ui
{
class EmptyListPage;
}
class QToolButton;
QT_END_NAMESPACE

/**
 * The three steps in words, the place to drop songs on, the way to a memory that has songs already,
 * and the lists of late.
 */
class EmptyListPage : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyListPage(QWidget *parent = nullptr);
    ~EmptyListPage() override;

    /** Lists that can be opened, by their paths, and whether the last one can be opened again. */
    void setLists(bool hasLast, const QStringList &lists);

    /** Something is dragged over the window that may be dropped there. */
    void setHighlighted(bool highlighted);

    /** Whatever starts work on this page. */
    QList<QWidget *> workButtons() const;

    /** What the keyboard reaches, in the order in which it is read. */
    QList<QWidget *> tabStops() const;

signals:
    /** The page comes into sight. */
    void shown();

    void songsWanted();
    void folderWanted();
    void memoryWanted();
    void lastListWanted();
    void listWanted(const QString &path);

protected:
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    QToolButton *addListButton();
    void setDropText();

    const QScopedPointer<Ui::EmptyListPage> ui;
    QToolButton *m_lastList = nullptr;
    QList<QToolButton *> m_lists;
};
