#include "cli/help.h"

#include "cli/arguments.h"

#include <QStringList>

namespace
{

using Command = Request::Command;

/** The same in every language. */
struct Usage {
    Command command;
    QStringList examples;
    QString arguments;
};

const QList<Usage> &usages()
{
    static const QList<Usage> all{
        {Command::Show,
         {QStringLiteral("kavena show *.mid"),
          QStringLiteral("find Songs -name '*.mp3' -print0 | kavena show --json -0")},
         QStringLiteral("[--json] [-0] FILE...")},
        {Command::Set,
         {QStringLiteral("kavena set --title \"MY SONG\" --key A- song.mid"),
          QStringLiteral("kavena set --genre SWING -- *.mf5")},
         QStringLiteral("[--title T] [--artist A] [--genre G] [--author W] [--key K] [--bpm N]\n"
                        "             [--length M:SS] [--without-history yes|no] [-0] FILE...")},
        {Command::Edit,
         {QStringLiteral("kavena edit --pattern \"%artist - %title\" *.mid"),
          QStringLiteral("kavena edit --strip all --case title,artist title --apply *.mp3"),
          QStringLiteral("kavena edit --rename \"%artist - %title\" --apply *.mid")},
         QStringLiteral(
             "[--pattern P] [--value FIELD TEXT] [--replace FIELD FROM TO]\n"
             "              [--regex FIELD FROM TO] [--ignore-case] [--case FIELD KIND]\n"
             "              [--swap FIELD FIELD] [--strip FIELD] [--from-csv LIST]\n"
             "              [--rename P [--short]] [--apply] "
             "[--without-history yes|no]\n"
             "              [--json] [-0] FILE...")},
        {Command::Sync,
         {QStringLiteral("kavena sync --dry-run Songs"),
          QStringLiteral("kavena sync --backup Backups --unsigned no Songs")},
         QStringLiteral("[--backup DIR] [--dry-run] [--unsigned yes|no] "
                        "[--without-history yes|no]\n"
                        "              [--json] [-0] FILE|DIR...")},
        {Command::Transfer,
         {QStringLiteral("kavena transfer Songs --to /media/$USER/CARD/songs"),
          QStringLiteral("kavena transfer --replace yes --to /media/$USER/CARD *.mid"),
          QStringLiteral("kavena transfer --dry-run Songs --to /media/$USER/CARD"),
          QStringLiteral("kavena transfer --in-line Songs --to /media/$USER/CARD")},
         QStringLiteral("--to FOLDER [--replace yes|no] [--rename yes|no] [--verify]\n"
                        "                  [--dry-run] [--in-line [--remove]] [--json] [-0] "
                        "FILE|DIR...")},
        {Command::IndexUpdate,
         {QStringLiteral("kavena index update /media/$USER/CARD")},
         QStringLiteral("[--rename yes|no] [--any-folder] MEMORY")},
        {Command::IndexRebuild,
         {QStringLiteral("kavena index rebuild --rename yes /media/$USER/CARD")},
         QStringLiteral("[--rename yes|no] [--any-folder] MEMORY")},
        {Command::IndexCheck,
         {QStringLiteral("kavena index check /media/$USER/CARD")},
         QStringLiteral("[--json] MEMORY")},
        {Command::List,
         {QStringLiteral("kavena list --sort artist /media/$USER/CARD"),
          QStringLiteral("kavena list --csv /media/$USER/CARD > SongsList.csv")},
         QStringLiteral("[--sort title|artist|genre] [--duplicates] [--csv|--json] MEMORY")},
        {Command::Remove,
         {QStringLiteral("kavena remove --confirm yes /media/$USER/CARD /songs/old.mid"),
          QStringLiteral("kavena remove /media/$USER/CARD /media/$USER/CARD/songs/*.mid")},
         QStringLiteral("[--confirm yes|no] [--any-folder] [--json] [-0] MEMORY PATH...")},
        {Command::Eject,
         {QStringLiteral("kavena eject /media/$USER/CARD")},
         QStringLiteral("[--json] MEMORY")},
        {Command::CatalogueFind,
         {QStringLiteral("kavena catalogue find \"blue moon\"")},
         QStringLiteral("[--json] TEXT")},
        {Command::CatalogueAdd,
         {QStringLiteral("kavena catalogue add *.mid")},
         QStringLiteral("[--replace yes|no] [-0] FILE|DIR...")},
        {Command::CatalogueExport,
         {QStringLiteral("kavena catalogue export mine.tsv")},
         QStringLiteral("[--replace yes|no] TSV")},
        {Command::CatalogueImport,
         {QStringLiteral("kavena catalogue import --replace yes mine.tsv")},
         QStringLiteral("[--replace yes|no] TSV")},
        {Command::History, {QStringLiteral("kavena history")}, QStringLiteral("[--json]")},
        {Command::Undo,
         {QStringLiteral("kavena undo"), QStringLiteral("kavena undo 12 song.mid")},
         QStringLiteral("[--changed yes|no] [--without-history yes|no] [--json] [-0] [JOB] "
                        "[FILE...]")},
        {Command::Tags,
         {QStringLiteral("kavena tags Songs"), QStringLiteral("kavena tags --apply *.mp3")},
         QStringLiteral("[--apply] [--without-history yes|no] [--json] [-0] FILE|DIR...")},
        {Command::Measure,
         {QStringLiteral("kavena measure Songs"), QStringLiteral("kavena measure --apply *.mid")},
         QStringLiteral("[--apply] [--without-history yes|no] [--json] [-0] FILE|DIR...")},
        {Command::Play,
         {QStringLiteral("kavena play song.mid")},
         QStringLiteral("[--sound-font F] FILE")},
        {Command::Render,
         {QStringLiteral("kavena render song.mid --to song.wav")},
         QStringLiteral("--to WAV [--replace yes|no] [--sound-font F] FILE")},
    };
    return all;
}

} // namespace

QString Help::text(Command command)
{
    QStringList examples;
    QStringList usage;
    QStringList options;
    QString arguments;
    for (const Usage &entry : usages()) {
        if (command != Command::None && command != entry.command)
            continue;
        examples +=
            command == Command::None ? QStringList{entry.examples.constFirst()} : entry.examples;
        arguments += entry.arguments;
        usage += QStringLiteral("kavena ") + Arguments::words(entry.command) + QLatin1Char(' ') +
                 entry.arguments;
    }
    constexpr int column = 20;
    const QString nextLine = QStringLiteral("\n  ") + QString(column + 1, QLatin1Char(' '));
    const auto option = [&](const char *name, const QString &meaning) {
        QString text = QString::fromUtf8(name);
        if (arguments.contains(text))
            options += text.size() > column
                           ? text + nextLine + meaning
                           : text.leftJustified(column) + QLatin1Char(' ') + meaning;
    };
    option("--title T", tr("titolo"));
    option("--artist A", tr("interprete"));
    option("--genre G", tr("genere"));
    option("--author W", tr("autore"));
    option("--key K", tr("tonalità, per esempio C, F# o A-; vuota per nessuna"));
    option("--bpm N", tr("tempo, da 0 a 999; 0 per nessuno"));
    option("--length M:SS", tr("durata in minuti e secondi"));
    option("--pattern P", tr("i dati dal nome del file, per esempio %track - %artist - %title"));
    option("--value FIELD TEXT", tr("un valore per tutte le song"));
    option("--replace FIELD FROM TO", tr("un testo al posto di un altro"));
    option("--regex FIELD FROM TO", tr("lo stesso con un'espressione regolare"));
    option("--ignore-case", tr("le maiuscole non contano nei testi da cercare"));
    option("--case FIELD KIND", tr("maiuscole: title, upper, lower o first"));
    option("--swap FIELD FIELD", tr("due campi si scambiano"));
    option("--strip FIELD", tr("toglie gli spazi in più; \"_\" diventa uno spazio"));
    option("--from-csv LIST", tr("i dati da un elenco, per nome del file"));
    option("--rename P", tr("i nomi dei file dai dati, per esempio %artist - %title"));
    option("--short", tr("con --rename: solo nomi che il player può mostrare"));
    option("--apply", command == Command::Edit
                          ? tr("scrive; altrimenti mostra soltanto")
                          : tr("scrive ciò che altrimenti viene solo mostrato"));
    option("--backup DIR", tr("copia prima le song in una nuova cartella in DIR"));
    option("--dry-run", tr("mostra le modifiche e non scrive niente"));
    option("--unsigned yes|no", tr("modifica anche le song senza la firma del produttore"));
    option("--to FOLDER", tr("la cartella di destinazione, in una memoria"));
    option("--to WAV", tr("il file WAV da scrivere"));
    option("--replace yes|no", tr("sostituisce i file, o le voci, che ci sono già"));
    option("--verify", tr("rilegge dalla memoria ogni copia e la confronta"));
    option("--in-line", tr("copia ciò che è nuovo o diverso ed elenca le song in più"));
    option("--remove", tr("con --in-line: rimuove le song in più, con le loro immagini"));
    option("--rename yes|no", tr("accorcia i nomi troppo lunghi per il player"));
    option("--any-folder", tr("anche una cartella che non è in una memoria"));
    option("--sort title|artist|genre", tr("l'ordine dell'elenco"));
    option("--duplicates", tr("solo le song che ci sono più volte, per gruppi"));
    option("--confirm yes|no", tr("elimina le song senza chiedere"));
    option("--without-history yes|no", tr("modifica anche se la cronologia non può essere usata"));
    option("--changed yes|no", tr("annulla anche nelle song cambiate dopo"));
    option("--sound-font F", tr("il sound font per le song MIDI; altrimenti uno installato"));
    option("--csv", tr("una tabella con i campi separati da \";\""));
    option("--json", tr("un oggetto JSON per riga; i nomi sono nella pagina di manuale"));
    option("-0", tr("legge altri nomi dallo standard input, ognuno chiuso da un byte zero"));

    const QString indent = QStringLiteral("\n  ");
    QString text = tr("Esempi:") + indent + examples.join(indent) + QStringLiteral("\n\n") +
                   tr("Uso:") + indent + usage.join(indent) + QStringLiteral("\n\n") +
                   tr("Opzioni:") + indent + options.join(indent) +
                   (options.isEmpty() ? QString() : indent) +
                   QStringLiteral("-h, --help           ") + tr("mostra questo aiuto") + indent;
    if (command == Command::None)
        text += QStringLiteral("--version            ") + tr("mostra la versione") + indent;
    text += QStringLiteral("--                   ") + tr("dopo ci sono solo nomi di file") +
            QStringLiteral("\n\n") +
            tr("Le domande senza risposta nelle opzioni si fanno solo su un terminale; "
               "altrove valgono come no.\n"
               "Stato d'uscita: 0 fatto, 1 fatto in parte, 2 uso errato, 3 niente di fatto.") +
            QLatin1Char('\n');
    return text;
}
