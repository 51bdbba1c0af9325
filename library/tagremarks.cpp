#include "library/tagremarks.h"

#include <QCoreApplication>

namespace
{

struct TagTexts {
    Q_DECLARE_TR_FUNCTIONS(Tags)
};

} // namespace

QString tagremarks::reasonText(TagTroubles troubles)
{
    QStringList reasons;
    if (troubles.testFlag(TagTrouble::Encoding))
        reasons << TagTexts::tr("un'altra codifica dei caratteri");
    if (troubles.testFlag(TagTrouble::Version))
        reasons << TagTexts::tr("un'altra versione di ID3");
    if (troubles.testFlag(TagTrouble::Unsynchronised))
        reasons << TagTexts::tr("byte aggiunti fra gli altri");
    if (troubles.testFlag(TagTrouble::OnlyId3v1))
        reasons << TagTexts::tr("solo ID3v1, alla fine del file");
    if (troubles.testFlag(TagTrouble::OnlyApe))
        reasons << TagTexts::tr("solo APE, alla fine del file");
    return reasons.join(QStringLiteral(", "));
}

QString tagremarks::songText(TagTroubles troubles)
{
    if (troubles == TagTroubles())
        return {};
    return TagTexts::tr("Il player non può mostrare i testi del tag MP3: %1")
        .arg(reasonText(troubles));
}

QStringList tagremarks::remarks(const Mp3Preparation &preparation)
{
    QStringList texts;
    if (!preparation.canBeWritten())
        texts << TagTexts::tr("Il tag è danneggiato, non può essere scritto.");
    if (!preparation.lostFrames().isEmpty())
        texts << TagTexts::tr("La nuova versione del tag non può contenere questi dati, che vanno "
                              "persi: %1")
                     .arg(preparation.lostFrames().join(QStringLiteral(", ")));
    if (!preparation.keptFrames().isEmpty())
        texts << TagTexts::tr("Questi testi del tag non si possono leggere e restano come sono: %1")
                     .arg(preparation.keptFrames().join(QStringLiteral(", ")));
    if (preparation.keepsVersion() && preparation.troubles() != TagTroubles())
        texts << TagTexts::tr("Il tag resta di versione 2.4, che contiene dati sconosciuti alla "
                              "2.3; il player ne legge i testi.");
    return texts;
}
