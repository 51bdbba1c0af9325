#include "windows/missinglibrary.h"

#include "library/sqlconnection.h"
#include "windows/busystate.h"

#include <QDir>
#include <QLabel>
#include <QMessageBox>
#include <QStatusBar>
#include <QTimer>

MissingLibrary::MissingLibrary(QStatusBar *bar)
    : QObject(bar)
    , m_label(new QLabel(bar))
{
    m_label->setObjectName(QStringLiteral("missingLibraryLabel"));
    m_label->setIndent(8);
    bar->addWidget(m_label);
    refresh();
}

void MissingLibrary::refresh()
{
    m_label->setText(tr("La lista delle song non è disponibile"));
}

QString MissingLibrary::reason()
{
    if (!SqlConnection::hasDriver())
        return tr("Il programma non è installato per intero: manca il modulo di Qt per i database "
                  "SQLite. Le song non possono essere elencate, sincronizzate o trasferite.\n\n"
                  "Installare di nuovo il programma.");
    return tr("Il database delle song non può essere aperto: le song non possono essere elencate, "
              "sincronizzate o trasferite.\n\nControllare che nella cartella dei file temporanei "
              "(%1) ci sia spazio e che vi si possa scrivere, poi riavviare il programma.")
        .arg(QDir::toNativeSeparators(QDir::tempPath()));
}

void MissingLibrary::tell(QWidget *window, BusyState &busy)
{
    auto *const whenShown = new QTimer(this);
    whenShown->setSingleShot(true);
    connect(whenShown, &QTimer::timeout, this, [window, &busy, text = reason()] {
        const BusyGuard guard(busy);
        QMessageBox::critical(window, tr("Attenzione"), text);
    });
    whenShown->start(0);
}
