// The main window with songs that lack what their music says, and the window that fills it in.
#pragma once

#include "support/midievents.h"
#include "support/severalfixture.h"
#include "windows/fillfrommusicdialog.h"
#include "windows/musicoffersmodel.h"

#include <QTableView>

namespace fillfixture
{

using namespace midievents;
using namespace severalfixture;
using songbytes::kravoEvent;

inline constexpr int fileColumn = MusicOffersModel::fileColumn;
inline const int lengthColumn = MusicOffersModel::foundColumn(0);
inline const int tempoColumn = MusicOffersModel::foundColumn(1);
inline const int keyColumn = MusicOffersModel::foundColumn(2);
inline const int markersColumn = MusicOffersModel::foundColumn(3);

inline const QByteArray keyOfD = metaEvent(0x59, QByteArray("\x02\x00", 2));

/** A minute at 90 quarters, in D major, with two marked places. */
inline QByteArray minute(const QByteArray &head = {})
{
    return songbytes::midiFile(
        {songbytes::track(head + keyOfD + bpm(90) + text(6, "Intro") +
                          after(8 * quarter, text(7, "Verse")) + pause(82 * quarter))});
}

inline QByteArray tune()
{
    QByteArray notes;
    for (const int pitch : {60, 64, 67, 72, 65, 69, 72, 67, 60})
        notes += note(0, pitch, quarter);
    return songbytes::midiFile({songbytes::track(metaEvent(3, "tune") + notes)});
}

inline SongInfo infoOf(const QString &path)
{
    MetaSong song;
    SongInfo info;
    if (song.importFile(path))
        song.getSongInfo(info);
    return info;
}

inline QTableView *table(const FillFromMusicDialog *dialog)
{
    return part<QTableView>(dialog, "songsTableView");
}

inline QString textAt(const FillFromMusicDialog *dialog, int row, int column)
{
    return dialog->model().index(row, column).data().toString();
}

/** -1 for a cell without a box. */
inline int boxAt(const FillFromMusicDialog *dialog, int row, int column)
{
    const QVariant box = dialog->model().index(row, column).data(Qt::CheckStateRole);
    return box.isValid() ? box.toInt() : -1;
}

/** The row of the file in the window; -1 without one. */
inline int rowIn(const FillFromMusicDialog *dialog, const QString &path)
{
    for (int row = 0; row < dialog->model().rowCount(); ++row) {
        if (textAt(dialog, row, fileColumn) == path.section(QLatin1Char('/'), -1))
            return row;
    }
    return -1;
}

/** Clicks the box of a cell with the mouse. */
inline void clickBox(const FillFromMusicDialog *dialog, int row, int column)
{
    QTableView *const view = table(dialog);
    const QModelIndex cell = view->model()->index(row, column);
    view->scrollTo(cell);
    const QRect rect = view->visualRect(cell);
    QTest::mouseClick(view->viewport(), Qt::LeftButton, Qt::NoModifier,
                      QPoint(rect.left() + 10, rect.center().y()));
}

} // namespace fillfixture

class FillFixture : public SeveralFixture
{
protected:
    void init();

    void fill(const std::function<void(FillFromMusicDialog *)> &look)
    {
        // The window comes after the progress of the measuring.
        bool looked = false;
        m_answers->add([&](QWidget *window) {
            auto *const dialog = qobject_cast<FillFromMusicDialog *>(window);
            if (dialog == nullptr || looked)
                return false;
            looked = true;
            QTimer::singleShot(0, dialog, [&look, dialog] {
                look(dialog);
                if (dialog->isVisible())
                    dialog->close();
            });
            return true;
        });
        m_window->action("actionFillFromMusic")->trigger();
        QVERIFY(looked);
    }
    void list(const QStringList &paths)
    {
        m_window->setSelectedFiles(paths);
        m_window->importUserLibrary();
    }

    QString m_minute; ///< lacks length, tempo and markers
    QString m_tune;   ///< lacks length, tempo and key, and the key can only be guessed
};

inline void FillFixture::init()
{
    SeveralFixture::init();
    m_minute = m_songs->write(QStringLiteral("minute.mid"),
                              fillfixture::minute(songbytes::metaEvent(3, "minute")));
    m_tune = m_songs->write(QStringLiteral("tune.mid"), fillfixture::tune());
    list({m_minute, m_tune});
    QCOMPARE(m_window->model()->goodRowCount(), 2);
}
