#include "windows/emptylistpage.h"

#include "windows/plaintooltip.h"

#include "ui_emptylistpage.h"

#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QStyle>
#include <QToolButton>

namespace
{

constexpr int mostLists = 3;
constexpr int widestList = 300; ///< pixels of the name of a list

} // namespace

EmptyListPage::EmptyListPage(QWidget *parent)
    : QWidget(parent)
    , ui(new Ui::EmptyListPage)
{
    ui->setupUi(this);
    ui->contents->setBackgroundRole(QPalette::Base);
    QFont large = ui->titleLabel->font();
    large.setBold(true);
    constexpr qreal largerThanText = 1.3;
    large.setPointSizeF(large.pointSizeF() * largerThanText);
    ui->titleLabel->setFont(large);
    m_lastList = addListButton();
    m_lastList->setObjectName(QStringLiteral("lastListToolButton"));
    connect(m_lastList, &QToolButton::clicked, this, &EmptyListPage::lastListWanted);
    for (int i = 0; i < mostLists; ++i) {
        QToolButton *const button = addListButton();
        m_lists.append(button);
        connect(button, &QToolButton::clicked, this,
                [this, button] { emit listWanted(button->property("path").toString()); });
    }
    setFocusProxy(ui->songsPushButton);
    connect(ui->songsPushButton, &QPushButton::clicked, this, &EmptyListPage::songsWanted);
    connect(ui->folderPushButton, &QPushButton::clicked, this, &EmptyListPage::folderWanted);
    connect(ui->memoryPushButton, &QPushButton::clicked, this, &EmptyListPage::memoryWanted);
    setLists(false, {});
    setDropText();
}

EmptyListPage::~EmptyListPage() = default;

QToolButton *EmptyListPage::addListButton()
{
    auto *const button = new QToolButton(ui->listsWidget);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setIcon(style()->standardIcon(QStyle::SP_FileIcon, nullptr, this));
    ui->listsLayout->addWidget(button);
    return button;
}

void EmptyListPage::setLists(bool hasLast, const QStringList &lists)
{
    m_lastList->setText(tr("Riapri l'ultima lista"));
    m_lastList->setVisible(hasLast);
    for (qsizetype i = 0; i < m_lists.size(); ++i) {
        QToolButton *const button = m_lists.at(i);
        const QString path = lists.value(i);
        button->setVisible(!path.isEmpty());
        button->setProperty("path", path);
        const QString name = fontMetrics().elidedText(QFileInfo(path).completeBaseName(),
                                                      Qt::ElideMiddle, widestList);
        button->setText(QString(name).replace(QLatin1Char('&'), QLatin1String("&&")));
        button->setToolTip(plainToolTip(QDir::toNativeSeparators(path)));
    }
    ui->listsWidget->setVisible(hasLast || !lists.isEmpty());
}

void EmptyListPage::setHighlighted(bool highlighted)
{
    ui->dropZone->setHighlighted(highlighted);
    setDropText();
}

QList<QWidget *> EmptyListPage::workButtons() const
{
    return {ui->songsPushButton, ui->folderPushButton, ui->memoryPushButton, ui->listsWidget};
}

QList<QWidget *> EmptyListPage::tabStops() const
{
    QList<QWidget *> stops{ui->songsPushButton, ui->folderPushButton, ui->memoryPushButton,
                           m_lastList};
    for (QToolButton *const list : m_lists)
        stops.append(list);
    return stops;
}

void EmptyListPage::setDropText()
{
    ui->dropLabel->setText(ui->dropZone->isHighlighted() ? tr("Rilascia qui le song")
                                                         : tr("Trascina qui song o cartelle"));
}

void EmptyListPage::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::LanguageChange)
        return;
    ui->retranslateUi(this);
    m_lastList->setText(tr("Riapri l'ultima lista"));
    setDropText();
}

void EmptyListPage::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    emit shown();
}
