// The window that optimises a memory, for its tests.
#pragma once

#include "library/settings.h"
#include "support/mountedcard.h"
#include "support/userdriver.h"
#include "windows/indexdialog.h"

#include <QLabel>
#include <QPlainTextEdit>
#include <QSettings>
#include <QTest>

#include <memory>

namespace openindexdialog
{

inline const QString missingText =
    QStringLiteral("Ottimizza memoria: Il percorso selezionato non esiste");
inline const QString noFolderText =
    QStringLiteral("Ottimizza memoria: Il percorso selezionato non è una cartella");
inline const QString successText =
    QStringLiteral("Ottimizza memoria: Operazione completata con successo");
inline const QString errorsText =
    QStringLiteral("Ottimizza memoria: Durante l'operazione si sono verificati alcuni errori.\n"
                   "Consultare il report per maggiori informazioni.");
inline const QString failureText =
    QStringLiteral("Ottimizza memoria: Operazione non riuscita.\nAssicurarsi che il disco abbia "
                   "sufficiente spazio libero e che non sia protetto da scrittura.");
inline const QString reportFrame = QStringLiteral("Ottimizzazione memoria in corso...\n"
                                                  "%1Operazione completata");

class IndexDialogFixture : public QObject
{
protected:
    void init();
    void cleanup();

    template <typename Widget>
    Widget *child(const char *name) const
    {
        auto *const found = m_dialog->findChild<Widget *>(QString::fromLatin1(name));
        if (found == nullptr)
            qFatal("The dialog has no %s", name);
        return found;
    }
    QString text(const char *label) const { return child<QLabel>(label)->text(); }
    QString report() const { return child<QPlainTextEdit>("plainTextReport")->toPlainText(); }
    void type(const QString &path) { child<QLineEdit>("lineEditPath")->setText(path); }
    void start(Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    void open();

    std::unique_ptr<MountedCard> m_card;
    std::unique_ptr<IndexDialog> m_dialog;
    std::unique_ptr<UserDriver> m_user;
};

/** Every test starts with the dialog open, a card with two songs in its field. */
inline void IndexDialogFixture::init()
{
    QSettings(settings::organisation, settings::application).clear();
    m_card = std::make_unique<MountedCard>();
    m_card->writeOnCard(QStringLiteral("pop/a.mid"), MountedCard::midi("A"));
    m_card->writeOnCard(QStringLiteral("pop/b.mid"), MountedCard::midi("B"));
    m_user = std::make_unique<UserDriver>();
    m_user->pressInMessageBoxes(QMessageBox::Ok);
    open();
    type(m_card->root());
}

inline void IndexDialogFixture::cleanup()
{
    m_dialog.reset();
    m_user.reset();
    m_card.reset();
}

inline void IndexDialogFixture::open()
{
    m_dialog = std::make_unique<IndexDialog>();
    m_dialog->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_dialog.get()));
}

inline void IndexDialogFixture::start(Qt::KeyboardModifiers modifiers)
{
    QTest::mouseClick(child<QPushButton>("pushButtonStart"), Qt::LeftButton, modifiers);
}

} // namespace openindexdialog
