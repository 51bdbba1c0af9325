#include "library/runreport.h"

#include <algorithm>

void RunReport::add(SongFinding::Kind kind, const QString &path, const QString &reason)
{
    m_findings.append({kind, path, reason});
}

int RunReport::count(SongFinding::Kind kind) const
{
    return static_cast<int>(
        std::count_if(m_findings.cbegin(), m_findings.cend(),
                      [kind](const SongFinding &finding) { return finding.kind == kind; }));
}

QString RunReport::summary() const
{
    QStringList lines;
    if (const int songs = count(SongFinding::Kind::NotSaved); songs > 0)
        lines << tr("%n song non sono state salvate.", nullptr, songs);
    if (const int songs = count(SongFinding::Kind::LostCharacters); songs > 0)
        lines << tr("In %n song ci sono caratteri che il player mostra come \"?\".", nullptr,
                    songs);
    return lines.join(QLatin1Char('\n'));
}

QString RunReport::text(const SongFinding &finding)
{
    switch (finding.kind) {
    case SongFinding::Kind::NotSaved:
        return tr("Non salvata: %1").arg(finding.reason);
    case SongFinding::Kind::LostCharacters:
        return tr("\"?\" al posto di: %1").arg(finding.reason);
    }
    return {};
}

QString RunReport::reasonText(SaveFailure failure)
{
    switch (failure) {
    case SaveFailure::None:
        return {};
    case SaveFailure::ReadOnly:
        return tr("La memoria è protetta da scrittura");
    case SaveFailure::DiskFull:
        return tr("Non c'è più spazio");
    case SaveFailure::FileGone:
        return tr("Il file non c'è più");
    case SaveFailure::NoPermission:
        return tr("Il file non può essere modificato: mancano i permessi");
    case SaveFailure::InUse:
        return tr("Il file è in uso da un altro programma");
    case SaveFailure::MediumFailed:
        return tr("La memoria dà errori o è stata tolta");
    case SaveFailure::TooLarge:
        return tr("I dati sono troppi per questo formato");
    case SaveFailure::Unreadable:
        return tr("Il file non è leggibile");
    case SaveFailure::Other:
        break;
    }
    return tr("Il file non può essere scritto");
}
