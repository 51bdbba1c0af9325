#include "windows/playerbar.h"

#include "library/settings.h"
#include "sound/soundfont.h"
#include "windows/elidedlabel.h"
#include "windows/filechooser.h"
#include "windows/playericon.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QSettings>
#include <QSlider>
#include <QStackedLayout>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QToolButton>

#include <algorithm>
#include <initializer_list>

namespace
{

constexpr int stepsInSecond = 10; // of the slider

QString timeText(double seconds)
{
    constexpr int secondsInMinute = 60;
    constexpr int minutesInHour = 60;
    const int all = std::max(static_cast<int>(seconds), 0);
    const int minutes = all / secondsInMinute;
    const QString rest = QStringLiteral("%1").arg(all % secondsInMinute, 2, 10, QLatin1Char('0'));
    if (minutes < minutesInHour)
        return QStringLiteral("%1:%2").arg(minutes).arg(rest);
    return QStringLiteral("%1:%2:%3")
        .arg(minutes / minutesInHour)
        .arg(minutes % minutesInHour, 2, 10, QLatin1Char('0'))
        .arg(rest);
}

/** A click goes to where it is, as in every player; usual sliders go there in steps. */
class PositionSlider : public QSlider
{
public:
    explicit PositionSlider(QWidget *parent)
        : QSlider(Qt::Horizontal, parent)
    {
    }

protected:
    void mousePressEvent(QMouseEvent *event) override
    {
        QStyleOptionSlider option;
        initStyleOption(&option);
        const QRect handle =
            style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
        if (event->button() == Qt::LeftButton && !handle.contains(event->pos())) {
            const int room = width() - handle.width();
            setValue(QStyle::sliderValueFromPosition(minimum(), maximum(),
                                                     event->pos().x() - handle.width() / 2, room));
            emit sliderMoved(value());
        }
        QSlider::mousePressEvent(event);
    }
};

} // namespace

PlayerBar::PlayerBar(QWidget *parent)
    : PlayerBar(Player::ofProgram(), parent)
{
}

PlayerBar::PlayerBar(Player &player, QWidget *parent)
    : QWidget(parent)
    , m_player(player)
{
    const QSettings settings(settings::organisation, settings::application);
    bool isNumber = false;
    const int volume = settings.value(settings::volume).toInt(&isNumber);
    if (isNumber)
        m_player.setVolume(volume);
    m_player.setSoundFont(settings.value(settings::soundFont).toString());
    makeWidgets();
    retranslate();
    connectWidgets();
    refresh();
}

QToolButton *PlayerBar::makeButton()
{
    auto *const button = new QToolButton(this);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    return button;
}

void PlayerBar::makeWidgets()
{
    m_play = makeButton();
    m_play->setObjectName(QStringLiteral("playButton"));
    m_stop = makeButton();
    m_stop->setObjectName(QStringLiteral("stopButton"));

    auto *const place = new QWidget(this);
    auto *const placeLayout = new QHBoxLayout(place);
    placeLayout->setContentsMargins(0, 0, 0, 0);
    m_elapsed = new QLabel(place);
    m_elapsed->setObjectName(QStringLiteral("elapsedLabel"));
    m_position = new PositionSlider(place);
    m_position->setObjectName(QStringLiteral("positionSlider"));
    m_remaining = new QLabel(place);
    m_remaining->setObjectName(QStringLiteral("remainingLabel"));
    // The slider stays where it is while the numbers change.
    for (QLabel *label : {m_elapsed, m_remaining})
        label->setMinimumWidth(fontMetrics().horizontalAdvance(QStringLiteral("-00:00")));
    m_remaining->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    placeLayout->addWidget(m_elapsed);
    placeLayout->addWidget(m_position, 1);
    placeLayout->addWidget(m_remaining);
    m_problem = new ElidedLabel(this);
    m_problem->setObjectName(QStringLiteral("problemLabel"));
    m_problem->setTextFormat(Qt::PlainText);

    m_sections = makeButton();
    m_sections->setObjectName(QStringLiteral("sectionsButton"));
    m_sections->setPopupMode(QToolButton::InstantPopup);
    m_sections->setMenu(new QMenu(m_sections));
    m_volume = new QSlider(Qt::Horizontal, this);
    m_volume->setObjectName(QStringLiteral("volumeSlider"));
    constexpr int loudest = 100;
    constexpr int volumeWidth = 80;
    m_volume->setRange(0, loudest);
    m_volume->setMaximumWidth(volumeWidth);
    m_volume->setValue(m_player.volume());
    m_options = makeButton();
    m_options->setObjectName(QStringLiteral("soundFontButton"));
    m_options->setText(QStringLiteral("…"));
    m_options->setPopupMode(QToolButton::InstantPopup);
    auto *const menu = new QMenu(m_options);
    m_chooseFont = menu->addAction(QString());
    m_installedFont = menu->addAction(QString());
    m_installedFont->setCheckable(true);
    m_options->setMenu(menu);

    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_play);
    layout->addWidget(m_stop);
    m_middle = new QStackedLayout;
    m_middle->addWidget(place);
    m_middle->addWidget(m_problem);
    layout->addLayout(m_middle, 1);
    layout->addWidget(m_sections);
    auto *const loudspeaker = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    loudspeaker->setPixmap(style()->standardIcon(QStyle::SP_MediaVolume).pixmap(size));
    layout->addWidget(loudspeaker);
    layout->addWidget(m_volume);
    layout->addWidget(m_options);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void PlayerBar::connectWidgets()
{
    connect(&m_player, &Player::changed, this, &PlayerBar::refresh);
    connect(&m_player, &Player::positionChanged, this, &PlayerBar::showPosition);
    connect(m_play, &QToolButton::clicked, this, &PlayerBar::toggle);
    connect(m_stop, &QToolButton::clicked, &m_player, &Player::stop);
    connect(m_position, &QSlider::sliderReleased, this,
            [this] { seekTo(double(m_position->sliderPosition()) / stepsInSecond); });
    connect(m_position, &QSlider::actionTriggered, this, [this](int action) {
        // The keys; the value is the old one still.
        if (action != QAbstractSlider::SliderMove)
            seekTo(double(m_position->sliderPosition()) / stepsInSecond);
    });
    connect(m_position, &QSlider::sliderMoved, this,
            [this](int step) { m_elapsed->setText(timeText(double(step) / stepsInSecond)); });
    connect(m_volume, &QSlider::valueChanged, this, &PlayerBar::storeVolume);
    connect(m_chooseFont, &QAction::triggered, this, &PlayerBar::chooseSoundFont);
    connect(m_installedFont, &QAction::triggered, this, [this] { setSoundFont(QString()); });
}

void PlayerBar::setSong(const QString &path)
{
    if (path == m_song)
        return;
    m_song = path;
    refresh();
}

void PlayerBar::toggle()
{
    if (!m_play->isEnabled())
        return;
    if (!m_player.isAbout(m_song))
        m_player.play(m_song);
    else if (m_player.state() == Player::State::Paused)
        m_player.resume();
    else
        m_player.pause();
}

void PlayerBar::seekTo(double seconds)
{
    m_player.seek(seconds);
}

void PlayerBar::storeVolume(int percent)
{
    m_player.setVolume(percent);
    QSettings(settings::organisation, settings::application).setValue(settings::volume, percent);
}

void PlayerBar::chooseSoundFont()
{
    const QString present = soundfont::find(m_player.soundFont());
    const QString path = filechooser::openFile(window(), tr("Scegli un sound font"), present,
                                               {tr("Sound font (*.sf2 *.sf3)")});
    if (!path.isEmpty())
        setSoundFont(path);
}

/** Of the user's choice; empty for an installed one. */
void PlayerBar::setSoundFont(const QString &path)
{
    QSettings settings(settings::organisation, settings::application);
    if (path.isEmpty())
        settings.remove(settings::soundFont);
    else
        settings.setValue(settings::soundFont, path);
    m_player.setSoundFont(path);
    refresh();
}

/** Empty when the bar's song can be played. */
QString PlayerBar::whyOff() const
{
    return m_song.isEmpty() ? QString() : SoundProblem::text(m_player.problemOf(m_song));
}

void PlayerBar::refresh()
{
    const SoundProblem::Kind problem = m_player.problemOf(m_song);
    const bool mayPlay = problem == SoundProblem::None || SoundProblem::mayPass(problem);
    const bool isPlaying = m_player.isAbout(m_song) && m_player.state() != Player::State::Paused;
    const bool isActive = m_player.state() != Player::State::Stopped;
    m_play->setEnabled(!m_song.isEmpty() && mayPlay);
    m_play->setIcon(
        playericon::make(isPlaying ? playericon::Kind::Pause : playericon::Kind::Play, *this));
    m_stop->setIcon(playericon::make(playericon::Kind::Stop, *this));
    const QString what = isPlaying ? tr("Pausa") : tr("Suona");
    m_play->setAccessibleName(what);
    m_play->setToolTip(mayPlay ? tr("%1 (barra spaziatrice)").arg(what) : whyOff());
    m_play->setAccessibleDescription(whyOff());
    m_stop->setEnabled(isActive);

    m_problem->setText(whyOff());
    m_middle->setCurrentIndex(!isActive && !m_problem->text().isEmpty() ? 1 : 0);
    const bool canSeek = isActive && m_player.length() > 0;
    m_position->setEnabled(canSeek);
    m_position->setRange(0, qRound(m_player.length() * stepsInSecond));
    m_position->setToolTip(isActive ? QFileInfo(m_player.path()).fileName() : QString());
    m_sections->setEnabled(canSeek && !m_player.sections().isEmpty());
    showSections();
    m_volume->setValue(m_player.volume());
    m_installedFont->setChecked(m_player.soundFont().isEmpty());
    showPosition();
}

void PlayerBar::showPosition()
{
    const bool isActive = m_player.state() != Player::State::Stopped;
    if (m_position->isSliderDown() && isActive)
        return;
    m_position->setValue(qRound(m_player.position() * stepsInSecond));
    m_elapsed->setText(isActive ? timeText(m_player.position()) : QString());
    m_remaining->setText(isActive && m_player.length() > 0
                             ? QLatin1Char('-') + timeText(m_player.length() - m_player.position())
                             : QString());
}

void PlayerBar::showSections()
{
    QMenu *const menu = m_sections->menu();
    menu->clear();
    for (const SongSection &section : m_player.sections()) {
        QString name = section.name;
        name.replace(QLatin1Char('&'), QLatin1String("&&"));
        const QAction *const action =
            menu->addAction(timeText(section.start) + QStringLiteral("  ") + name);
        connect(action, &QAction::triggered, this,
                [this, start = section.start] { seekTo(start); });
    }
}

void PlayerBar::retranslate()
{
    setAccessibleName(tr("Ascolto"));
    m_stop->setToolTip(tr("Ferma"));
    m_stop->setAccessibleName(tr("Ferma"));
    m_position->setAccessibleName(tr("Posizione nella song"));
    m_sections->setText(tr("Marker"));
    m_sections->setToolTip(tr("Vai a un marker della song"));
    m_volume->setToolTip(tr("Volume"));
    m_volume->setAccessibleName(tr("Volume"));
    m_options->setToolTip(tr("Sound font per le song MIDI"));
    m_options->setAccessibleName(tr("Sound font per le song MIDI"));
    m_chooseFont->setText(tr("Scegli un sound font..."));
    m_installedFont->setText(tr("Usa quello installato"));
}

void PlayerBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (m_installedFont == nullptr) // under construction
        return;
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    if (event->type() == QEvent::LanguageChange || event->type() == QEvent::PaletteChange)
        refresh();
}

void PlayerBar::playOnSpaceIn(QAbstractItemView *table)
{
    m_table = table;
    table->installEventFilter(this);
}

void PlayerBar::followInTabOrder(QWidget *before)
{
    QWidget *last = before;
    for (QWidget *const next : std::initializer_list<QWidget *>{m_play, m_stop, m_position,
                                                                m_sections, m_volume, m_options}) {
        setTabOrder(last, next);
        last = next;
    }
}

bool PlayerBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress || watched != m_table)
        return QWidget::eventFilter(watched, event);
    const auto *const key = static_cast<const QKeyEvent *>(event);
    const bool isTyping =
        m_sinceTyping.isValid() && !m_sinceTyping.hasExpired(QApplication::keyboardInputInterval());
    if (key->key() == Qt::Key_Space && key->modifiers() == Qt::NoModifier && !isTyping) {
        if (!key->isAutoRepeat())
            toggle();
        return true;
    }
    if (!key->text().isEmpty() && key->text().at(0).isPrint())
        m_sinceTyping.start();
    return QWidget::eventFilter(watched, event);
}
