// The main window with three songs, and its windows for many songs.
#pragma once

#include "support/apptest.h"
#include "support/mainwindowdriver.h"
#include "support/modalanswers.h"
#include "support/samplesongs.h"
#include "windows/editseveraldialog.h"
#include "windows/renameseveraldialog.h"

#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <functional>
#include <memory>

namespace severalfixture
{

template <typename Widget>
Widget *part(const QWidget *dialog, const char *name)
{
    return dialog->findChild<Widget *>(QLatin1String(name));
}

inline void press(const QWidget *dialog, const char *name)
{
    QTest::mouseClick(part<QPushButton>(dialog, name), Qt::LeftButton);
}

} // namespace severalfixture

class SeveralFixture : public AppFixture
{
protected:
    void init();
    void cleanup();

    template <typename Dialog>
    void inWindow(const char *action, const std::function<void(Dialog *)> &look)
    {
        bool looked = false;
        // Not from the timer of the answers, which are needed meanwhile.
        QTimer::singleShot(0, m_window.get(), [&] {
            auto *const dialog = qobject_cast<Dialog *>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            looked = true;
            look(dialog);
            if (dialog->isVisible())
                dialog->close();
        });
        m_window->action(action)->trigger();
        QVERIFY(looked);
    }
    void edit(const std::function<void(EditSeveralDialog *)> &look)
    {
        inWindow<EditSeveralDialog>("actionEditSeveral", look);
    }
    void rename(const std::function<void(RenameSeveralDialog *)> &look)
    {
        inWindow<RenameSeveralDialog>("actionRenameSeveral", look);
    }
    void takeLastBack();
    int rowOf(const QString &path) const
    {
        for (int row = 0; row < m_window->model()->goodRowCount(); ++row) {
            if (m_window->model()->fileName(row) == path)
                return row;
        }
        return -1;
    }

    std::unique_ptr<SongFolder> m_songs;
    std::unique_ptr<WindowUnderTest> m_window;
    std::unique_ptr<ModalAnswers> m_answers;
    QString m_volare;
    QString m_aida;
    QString m_other;
};

inline void SeveralFixture::init()
{
    AppFixture::init();
    QVERIFY(mainwindowdriver::writeCatalogue());
    m_songs = std::make_unique<SongFolder>();
    m_volare = m_songs->midi(QStringLiteral("Mina - Volare.mid"), "one");
    m_aida = m_songs->mp3(QStringLiteral("Verdi - Aida.mp3"), "two");
    m_other = m_songs->midi(QStringLiteral("other.mid"), "three");
    m_window = std::make_unique<WindowUnderTest>();
    m_window->setSelectedFiles({m_volare, m_aida, m_other});
    m_window->importUserLibrary();
    QCOMPARE(m_window->model()->goodRowCount(), 3);
    m_answers = std::make_unique<ModalAnswers>();
    m_answers->pressInMessageBoxes(QMessageBox::Ok);
}

inline void SeveralFixture::cleanup()
{
    m_answers.reset();
    m_window.reset();
    m_songs.reset();
    AppFixture::cleanup();
}

inline void SeveralFixture::takeLastBack()
{
    m_answers.reset();
    ModalAnswers answers;
    answers.add([](QWidget *window) {
        auto *const box = qobject_cast<QMessageBox *>(window);
        if (box == nullptr)
            return false;
        QAbstractButton *const yes = box->button(QMessageBox::Yes);
        QTest::mouseClick(yes != nullptr ? yes : box->button(QMessageBox::Ok), Qt::LeftButton);
        return true;
    });
    m_window->action("actionTakeBack")->trigger();
}
