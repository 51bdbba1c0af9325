<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="it_IT">
<context>
    <name>AboutDialog</name>
    <message>
        <source>Informazioni</source>
        <translation>Über RB27 Utility</translation>
    </message>
    <message>
        <source>Kavena PC</source>
        <translation>RB27 Utility</translation>
    </message>
    <message>
        <source>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Build date: %2&lt;br/&gt;</source>
        <translation>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Erstellt am: %2&lt;br/&gt;</translation>
    </message>
    <message>
        <source>(c) 2011 K-Ravo. Tutti i diritti riservati.&lt;br/&gt;I nomi e i marchi citati appartengono ai rispettivi proprietari.&lt;br/&gt;&lt;a href=&quot;https://kravo.example/&quot;&gt;https://kravo.example/&lt;/a&gt;</source>
        <translation>© 2011 K-Ravo. Alle Rechte vorbehalten.&lt;br/&gt;Alle genannten Namen und Marken gehören ihren jeweiligen Inhabern.&lt;br/&gt;&lt;a href=&quot;https://kravo.example/&quot;&gt;https://kravo.example/&lt;/a&gt;</translation>
    </message>
    <message>
        <source>Assistenza:</source>
        <translation>Support:</translation>
    </message>
    <message>
        <source>&amp;Librerie e licenze...</source>
        <translation>&amp;Bibliotheken und Lizenzen...</translation>
    </message>
</context>
<context>
    <name>BackupDialog</name>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>Cartella di backup</source>
        <translation>Ordner für die Sicherung</translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Prosegui senza backup</source>
        <translation>&amp;Ohne Sicherung fortfahren</translation>
    </message>
    <message>
        <source>Esegui backup</source>
        <translation>&amp;Sicherung erstellen</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Si consiglia di effettuare un backup della libreria prima di procedere con l&apos;aggiornamento.
Selezionare una cartella di destinazione per il backup oppure premere &apos;Prosegui senza backup&apos;.</source>
        <translation>Wir empfehlen, die Songs zu sichern, bevor sie aktualisiert werden.
Wählen Sie einen Zielordner für die Sicherung, oder klicken Sie auf „Ohne Sicherung fortfahren“.</translation>
    </message>
</context>
<context>
    <name>ChangePreview</name>
    <message>
        <source>Anteprima delle modifiche</source>
        <translation>Vorschau der Änderungen</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>Confronto le song con il database...</source>
        <translation>Songs werden mit der Datenbank verglichen...</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Musikrichtung</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Tonart</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>Marker attivi</source>
        <translation>Abschnitte angezeigt</translation>
    </message>
    <message>
        <source>(vuoto)</source>
        <translation>(leer)</translation>
    </message>
    <message>
        <source>il mio catalogo</source>
        <translation>mein Katalog</translation>
    </message>
    <message>
        <source>catalogo del programma</source>
        <translation>Katalog des Programms</translation>
    </message>
</context>
<context>
    <name>ChangePreviewDialog</name>
    <message>
        <source>Anteprima delle modifiche</source>
        <translation>Vorschau der Änderungen</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song und Angabe</translation>
    </message>
    <message>
        <source>Valore attuale</source>
        <translation>Bisher</translation>
    </message>
    <message>
        <source>Nuovo valore</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Nessun file è stato ancora modificato.</source>
        <translation>Noch wurde keine Datei verändert.</translation>
    </message>
    <message>
        <source>Sincronizza</source>
        <translation>S&amp;ynchronisieren</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 (verrà chiesta conferma)</source>
        <translation>%1 (mit Rückfrage)</translation>
    </message>
    <message>
        <source>La sincronizzazione modificherebbe questi dati:</source>
        <translation>Beim &amp;Synchronisieren würden diese Angaben geändert:</translation>
    </message>
    <message>
        <source>Song che verrebbero modificate: %1 di %2
Song non presenti nel database: %3
Song non leggibili: %4</source>
        <translation>Songs, die geändert würden: %1 von %2
Songs, die nicht in der Datenbank stehen: %3
Songs, die nicht lesbar sind: %4</translation>
    </message>
    <message>
        <source>%1 (&quot;?&quot; al posto di: %2)</source>
        <translation>%1 („?“ statt: %2)</translation>
    </message>
</context>
<context>
    <name>DataEditDialog</name>
    <message>
        <source>Modifica dati song</source>
        <translation>Song bearbeiten</translation>
    </message>
    <message>
        <source>Percorso file:</source>
        <translation>Datei:</translation>
    </message>
    <message>
        <source>Formato:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Modifica i dati della Song:</source>
        <translation>Angaben zum Song:</translation>
    </message>
    <message>
        <source>Titolo Song:</source>
        <translation>Song&amp;titel:</translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation>Für alle übernehmen</translation>
    </message>
    <message>
        <source>Usa il titolo</source>
        <translation>Tit&amp;el verwenden</translation>
    </message>
    <message>
        <source>Usa il filename</source>
        <translation>Datei&amp;namen verwenden</translation>
    </message>
    <message>
        <source>Interprete:</source>
        <translation>&amp;Interpret:</translation>
    </message>
    <message>
        <source>Genere Musicale:</source>
        <translation>&amp;Musikrichtung:</translation>
    </message>
    <message>
        <source>Autore:</source>
        <translation>A&amp;utor:</translation>
    </message>
    <message>
        <source>Durata:</source>
        <translation>&amp;Dauer:</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>Min.</translation>
    </message>
    <message>
        <source>ss</source>
        <translation>Sek.</translation>
    </message>
    <message>
        <source>Tonalità:</source>
        <translation>T&amp;onart:</translation>
    </message>
    <message>
        <source>BPM:</source>
        <translation>&amp;BPM:</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Il titolo di tutte le song della lista verrà sovrascritto non il nome del file, sei sicuro?</source>
        <translation>Der Titel aller Songs der Liste wird durch den Dateinamen ersetzt. Sind Sie sicher?</translation>
    </message>
    <message>
        <source>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>Der eingegebene Interpret wird für alle Songs der Liste übernommen. Sind Sie sicher?</translation>
    </message>
    <message>
        <source>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>Die eingegebene Musikrichtung wird für alle Songs der Liste übernommen. Sind Sie sicher?</translation>
    </message>
    <message>
        <source>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>Der eingegebene Autor wird für alle Songs der Liste übernommen. Sind Sie sicher?</translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation>ACHTUNG</translation>
    </message>
    <message>
        <source>Il player mostrerà &quot;?&quot; al posto di: %1</source>
        <translation>Der Player zeigt „?“ statt: %1</translation>
    </message>
    <message>
        <source>Il valore inserito verrà applicato a tutte le song scelte, sei sicuro?</source>
        <translation>Die Eingabe wird bei allen ausgewählten Songs eingetragen. Sind Sie sicher?</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation>Hilfe zu RB27 Utility</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>Cerca nell&apos;aiuto</source>
        <translation>In der Hilfe suchen</translation>
    </message>
    <message>
        <source>&amp;Precedente</source>
        <translation>&amp;Vorheriger Treffer</translation>
    </message>
    <message>
        <source>&amp;Successivo</source>
        <translation>&amp;Nächster Treffer</translation>
    </message>
    <message>
        <source>Nessun risultato: prova un&apos;altra parola.</source>
        <translation>Nichts gefunden: Versuchen Sie ein anderes Wort.</translation>
    </message>
    <message>
        <source>Risultato %1 di %2</source>
        <translation>Treffer %1 von %2</translation>
    </message>
</context>
<context>
    <name>Index</name>
    <message>
        <source>verrà rinominato: </source>
        <translation>Soll sie umbenannt werden? Neuer Name: </translation>
    </message>
    <message>
        <source>Se il file non viene rinominato, è possibile che non venga rilevato da Kavena.</source>
        <translation>Wird sie nicht umbenannt, findet RB27 sie möglicherweise nicht.</translation>
    </message>
    <message>
        <source>File non importato, errore nel path:</source>
        <translation>Datei nicht aufgenommen, Fehler bei Ordner oder Name:</translation>
    </message>
    <message>
        <source>File non importato, path troppo lungo: </source>
        <translation>Datei nicht aufgenommen, Ordner und Name zusammen zu lang: </translation>
    </message>
    <message>
        <source>File non importato, troppi file nella memoria: </source>
        <translation>Datei nicht aufgenommen, zu viele Dateien auf dem Speicher: </translation>
    </message>
    <message>
        <source>File non importato, non può essere letto: </source>
        <translation>Datei nicht aufgenommen, sie kann nicht gelesen werden: </translation>
    </message>
    <message>
        <source>Non importato, il nome non è in UTF-8: </source>
        <translation>Nicht aufgenommen, der Name enthält unlesbare Zeichen; bitte umbenennen: </translation>
    </message>
    <message>
        <source>Cartella non leggibile, le sue song non sono state cercate: </source>
        <translation>Ordner nicht lesbar, seine Songs wurden nicht gesucht: </translation>
    </message>
    <message>
        <source>File non importato, il nome differisce da un altro solo per le maiuscole: </source>
        <translation>Datei nicht aufgenommen, der Name unterscheidet sich nur in Groß- und Kleinschreibung von einem anderen: </translation>
    </message>
    <message>
        <source>File non rinominato, l&apos;ultimo salvataggio non è stato completato: </source>
        <translation>Datei nicht umbenannt, das letzte Speichern wurde nicht beendet: </translation>
    </message>
    <message>
        <source>TITOLO</source>
        <translation>TITEL</translation>
    </message>
    <message>
        <source>ARTISTA</source>
        <translation>INTERPRET</translation>
    </message>
    <message>
        <source>GENERE</source>
        <translation>MUSIKRICHTUNG</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>DATEI</translation>
    </message>
    <message>
        <source>Nome troppo lungo, il player non lo trova: </source>
        <translation>Name zu lang, der Player findet es nicht: </translation>
    </message>
</context>
<context>
    <name>IndexDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Speicher optimieren</translation>
    </message>
    <message>
        <source>Seleziona la cartella principale della Compact Flash o della Penna USB che vuoi ottimizzare per Kavena:</source>
        <translation>Wählen Sie den &amp;Hauptordner der Compact-Flash-Karte oder des USB-Sticks, der für RB27 optimiert werden soll:</translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation>&amp;Durchsuchen</translation>
    </message>
    <message>
        <source>Seleziona l&apos;azione che vuoi eseguire:</source>
        <translation>&amp;Wählen Sie, was geschehen soll:</translation>
    </message>
    <message>
        <source>Ho inserito o eliminato alcune song, aggiorna database</source>
        <translation>Songs wurden hinzugefügt oder gelöscht: Songverzeichnis &amp;aktualisieren</translation>
    </message>
    <message>
        <source>Ho problemi con gli archivi, ricostruisci database</source>
        <translation>Der Player findet Songs nicht: Songverzeichnis &amp;neu aufbauen</translation>
    </message>
    <message>
        <source>Controlla struttura memoria</source>
        <translation>Speicher&amp;struktur prüfen</translation>
    </message>
    <message>
        <source>File found:</source>
        <translation>Gefundene Dateien:</translation>
    </message>
    <message>
        <source>Report:</source>
        <translation>&amp;Bericht:</translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation>S&amp;tarten</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Schl&amp;ießen</translation>
    </message>
    <message>
        <source>Ottimizzazione memoria in corso...</source>
        <translation>Speicher wird optimiert...</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Vorgang abgeschlossen</translation>
    </message>
    <message>
        <source>Ottimizza memoria</source>
        <translation>Speicher optimieren</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>Den gewählten Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</source>
        <translation>Während des Vorgangs sind Fehler aufgetreten.
Näheres steht im Bericht.</translation>
    </message>
    <message>
        <source>Operazione completata con successo</source>
        <translation>Vorgang erfolgreich abgeschlossen</translation>
    </message>
    <message>
        <source>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</source>
        <translation>Der Vorgang ist fehlgeschlagen.
Vergewissern Sie sich, dass der Speicher genügend freien Platz hat und nicht schreibgeschützt ist.</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>S&amp;peicher:</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>Ordner:</translation>
    </message>
    <message>
        <source>Il percorso selezionato non è una cartella</source>
        <translation>Das ist kein Ordner, sondern eine Datei</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Kavena PC</source>
        <translation>RB27 Utility</translation>
    </message>
    <message>
        <source>Seleziona le basi musicali che desideri inserire nella memoria di Kavena</source>
        <translation>Wählen Sie die Songs aus, die auf Karte oder Stick kommen sollen</translation>
    </message>
    <message>
        <source>Sincronizza song con il database K-Ravo</source>
        <translation>Songs mit der K-Ravo-Datenbank synchronisieren</translation>
    </message>
    <message>
        <source>Trasferisci song nella memoria di Kavena</source>
        <translation>Songs auf Karte oder Stick übertragen</translation>
    </message>
    <message>
        <source>Opzioni nascoste</source>
        <translation>Verborgene Optionen</translation>
    </message>
    <message>
        <source>Abilita log (riavvio necessario!)</source>
        <translation>Protokoll einschalten (Neustart erforderlich!)</translation>
    </message>
    <message>
        <source>Cancella log ad ogni avvio</source>
        <translation>Protokoll bei jedem Start löschen</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Abschnitt hinzufügen</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Import again</source>
        <translation>Erneut einlesen</translation>
    </message>
    <message>
        <source>Hide Debug</source>
        <translation>Debug ausblenden</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Songs sichern</translation>
    </message>
    <message>
        <source>Manual Dialog</source>
        <translation>Manueller Dialog</translation>
    </message>
    <message>
        <source>File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>Preferenze</source>
        <translation>&amp;Einstellungen</translation>
    </message>
    <message>
        <source>Lingua</source>
        <translation>&amp;Sprache</translation>
    </message>
    <message>
        <source>Messaggi Copyright</source>
        <translation>&amp;Copyright-Meldungen</translation>
    </message>
    <message>
        <source>Strumenti</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>Esci</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>Italiano</source>
        <translation>&amp;Italiano</translation>
    </message>
    <message>
        <source>English</source>
        <translation>&amp;English</translation>
    </message>
    <message>
        <source>Deutsch</source>
        <translation>&amp;Deutsch</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Rigenera il database delle song</source>
        <translation>Speicher &amp;optimieren...</translation>
    </message>
    <message>
        <source>Salva lista delle song</source>
        <translation>Song&amp;liste speichern...</translation>
    </message>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation>&amp;Hilfe zu RB27 Utility...</translation>
    </message>
    <message>
        <source>Informazioni</source>
        <translation>&amp;Über RB27 Utility...</translation>
    </message>
    <message>
        <source>Informazioni su QT</source>
        <translation>Über &amp;Qt...</translation>
    </message>
    <message>
        <source>Seleziona i file da importare</source>
        <translation>Songs auswählen</translation>
    </message>
    <message>
        <source>Lettura file</source>
        <translation>Songs einlesen</translation>
    </message>
    <message>
        <source>Importo la libreria...</source>
        <translation>Songs werden eingelesen...</translation>
    </message>
    <message>
        <source>Backup eseguito correttamente</source>
        <translation>Die Sicherung wurde erfolgreich erstellt</translation>
    </message>
    <message>
        <source>Backup FALLITO !!!</source>
        <translation>Sicherung FEHLGESCHLAGEN!</translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation>Aus der &amp;Liste entfernen</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>&amp;Datei löschen...</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Achtung</translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare il file?</source>
        <translation>Möchten Sie die Datei wirklich löschen?</translation>
    </message>
    <message>
        <source>Interrompi</source>
        <translation>&amp;Anhalten</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 von %2</translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <translation>Songs synchronisieren</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Songs werden synchronisiert...</translation>
    </message>
    <message>
        <source>Eseguo backup dellla libreria...</source>
        <translation>Songs werden gesichert...</translation>
    </message>
    <message>
        <source>esiste già, vuoi sostituirlo?</source>
        <translation>existiert bereits. Möchten Sie die Datei ersetzen?</translation>
    </message>
    <message>
        <source>Trasferimento</source>
        <translation>Übertragung</translation>
    </message>
    <message>
        <source>Tutti i file sono stati copiati correttamente</source>
        <translation>Alle Dateien wurden erfolgreich kopiert</translation>
    </message>
    <message>
        <source>Non è stato possibile copiare uno o più file</source>
        <translation>Eine oder mehrere Dateien konnten nicht kopiert werden</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Aktualisierung</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Songverzeichnis wird aktualisiert...</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sul disco di sistema</source>
        <translation>Dieser Ordner liegt nicht auf Karte oder Stick</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</source>
        <translation>In den Hauptordner können keine Dateien kopiert werden. Erstellen oder wählen Sie einen Unterordner.</translation>
    </message>
    <message>
        <source>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Kavena, selezionare un&apos;altra cartella</source>
        <translation>Die Ordner BRIDGE, SFX und PLAYLIST können nicht verwendet werden, weil RB27 sie für eigene Zwecke braucht. Wählen Sie einen anderen Ordner.</translation>
    </message>
    <message>
        <source>Lo spazio libero nella memoria non è sufficiente: mancano %1.
Si vuole procedere comunque con la copia?</source>
        <translation>Der freie Platz auf dem Speicher reicht nicht aus: Es fehlen %1.
Trotzdem kopieren?</translation>
    </message>
    <message>
        <source>Trasferimento file...</source>
        <translation>Songs werden übertragen...</translation>
    </message>
    <message>
        <source>Mostra le modifiche prima di sincronizzare</source>
        <translation>Änderungen &amp;vor dem Synchronisieren anzeigen</translation>
    </message>
    <message>
        <source>Song copiate: %1</source>
        <translation>Kopierte Songs: %1</translation>
    </message>
    <message>
        <source>Song saltate: %1</source>
        <translation>Übersprungene Songs: %1</translation>
    </message>
    <message>
        <source>Song non più copiate dopo l&apos;interruzione: %1</source>
        <translation>Nach dem Anhalten nicht mehr kopierte Songs: %1</translation>
    </message>
    <message>
        <source>Il database della memoria non è stato aggiornato.</source>
        <translation>Das Songverzeichnis des Speichers wurde nicht aktualisiert.</translation>
    </message>
    <message>
        <source>esiste già un file con questo nome</source>
        <translation>eine Datei mit diesem Namen ist schon da</translation>
    </message>
    <message>
        <source>%1: esisteva già e non è stata sostituita</source>
        <translation>%1: war schon da und wurde nicht ersetzt</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>S&amp;uchen:</translation>
    </message>
    <message>
        <source>Titolo, artista, genere, autore o nome file</source>
        <translation>Titel, Interpret, Musikrichtung, Autor oder Dateiname</translation>
    </message>
    <message>
        <source>Lista delle song</source>
        <translation>Liste der Songs</translation>
    </message>
    <message>
        <source>&amp;Ordina per</source>
        <translation>S&amp;ortieren nach</translation>
    </message>
    <message>
        <source>&amp;Seleziona song...</source>
        <translation>Songs &amp;auswählen...</translation>
    </message>
    <message>
        <source>&amp;Trasferisci song...</source>
        <translation>Songs über&amp;tragen...</translation>
    </message>
    <message>
        <source>&amp;Modifica dati song...</source>
        <translation>Song b&amp;earbeiten...</translation>
    </message>
    <message>
        <source>&amp;Rimuovi dalla lista</source>
        <translation>Aus der &amp;Liste entfernen</translation>
    </message>
    <message>
        <source>Cance&amp;lla file...</source>
        <translation>&amp;Datei löschen...</translation>
    </message>
    <message>
        <source>&amp;Cerca song</source>
        <translation>Songs su&amp;chen</translation>
    </message>
    <message>
        <source>Nessuna song trovata</source>
        <translation>Keine Songs gefunden</translation>
    </message>
    <message>
        <source>Cerco le song nelle cartelle...</source>
        <translation>Songs werden in den Ordnern gesucht...</translation>
    </message>
    <message>
        <source>Song della memoria con problemi: %1</source>
        <translation>Songs auf dem Speicher mit Problemen: %1</translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <comment>Apply to all</comment>
        <translation>Songs bearbeiten</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <comment>Apply to all</comment>
        <translation>Songs werden bearbeitet...</translation>
    </message>
    <message>
        <source>Song non copiate (errori): %1</source>
        <translation>Nicht kopiert (Fehler): %1</translation>
    </message>
    <message>
        <source>Si&amp;ncronizza song...</source>
        <translation>Songs &amp;synchronisieren...</translation>
    </message>
    <message>
        <source>la memoria restituisce byte diversi da quelli scritti</source>
        <translation>der Speicher gibt andere Bytes zurück, als geschrieben wurden</translation>
    </message>
    <message>
        <source>Il piano è stato eseguito</source>
        <translation>Der Plan ist ausgeführt</translation>
    </message>
    <message>
        <source>Non è stato possibile eseguire tutto il piano</source>
        <translation>Der Plan konnte nicht ganz ausgeführt werden</translation>
    </message>
    <message>
        <source>Confronto con la memoria...</source>
        <translation>Vergleich mit dem Speicher...</translation>
    </message>
    <message>
        <source>Song già presenti: %1</source>
        <translation>Schon vorhandene Songs: %1</translation>
    </message>
    <message>
        <source>Song rimosse: %1</source>
        <translation>Entfernte Songs: %1</translation>
    </message>
    <message>
        <source>Errori: %1</source>
        <translation>Fehler: %1</translation>
    </message>
    <message>
        <source>%1: rimossa</source>
        <translation>%1: entfernt</translation>
    </message>
    <message>
        <source>%1: sostituita</source>
        <translation>%1: ersetzt</translation>
    </message>
    <message>
        <source>La cartella %1 è un collegamento a un&apos;altra cartella, dove le song non possono essere copiate</source>
        <translation>Der Ordner %1 ist eine Verknüpfung mit einem anderen Ordner, in den keine Songs kopiert werden können</translation>
    </message>
    <message>
        <source>una song dell&apos;elenco si trova lì con questo nome</source>
        <translation>dort liegt unter diesem Namen ein Song aus der Liste</translation>
    </message>
    <message>
        <source>%1: sostituita da un&apos;altra song scelta con lo stesso nome</source>
        <translation>%1: von einem anderen gewählten Song gleichen Namens ersetzt</translation>
    </message>
    <message>
        <source>&amp;Piano di trasferimento...</source>
        <translation>&amp;Übertragungsplan...</translation>
    </message>
    <message>
        <source>Contenuto della memoria...</source>
        <translation>Speicher &amp;ansehen...</translation>
    </message>
    <message>
        <source>Mostra la memoria</source>
        <translation>Speicher ansehen</translation>
    </message>
    <message>
        <source>Espelli la memoria</source>
        <translation>Speicher auswerfen</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Annulla l&apos;ultimo lavoro...</source>
        <translation>Letzten Vorgang &amp;zurücknehmen...</translation>
    </message>
    <message>
        <source>&amp;Cronologia...</source>
        <translation>&amp;Verlauf...</translation>
    </message>
    <message>
        <source>Modifica &amp;più song...</source>
        <translation>&amp;Mehrere Songs bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Rinomina i file...</source>
        <translation>&amp;Dateien umbenennen...</translation>
    </message>
    <message>
        <source>Prepara i ta&amp;g MP3...</source>
        <translation>MP3-Ta&amp;gs vorbereiten...</translation>
    </message>
    <message>
        <source>A&amp;ggiungi file...</source>
        <translation>Dateien &amp;hinzufügen...</translation>
    </message>
    <message>
        <source>Aggiung&amp;i cartella...</source>
        <translation>Ord&amp;ner hinzufügen...</translation>
    </message>
    <message>
        <source>&amp;Apri lista...</source>
        <translation>Liste ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Sal&amp;va lista...</source>
        <translation>Liste s&amp;peichern...</translation>
    </message>
    <message>
        <source>Ria&amp;pri l&apos;ultima lista</source>
        <translation>Letzte Liste &amp;wieder öffnen</translation>
    </message>
    <message>
        <source>&amp;Usati di recente</source>
        <translation>&amp;Zuletzt verwendet</translation>
    </message>
    <message>
        <source>&amp;Aggiungi al mio catalogo</source>
        <translation>Zu meinem Katalog &amp;hinzufügen</translation>
    </message>
    <message>
        <source>Aggiungi al mio catalogo</source>
        <translation>Zu meinem Katalog hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Il mio catalogo...</source>
        <translation>&amp;Mein Katalog...</translation>
    </message>
    <message>
        <source>C&amp;opia</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copia tutta la &amp;lista</source>
        <translation>&amp;Ganze Liste kopieren</translation>
    </message>
    <message>
        <source>Colo&amp;nne</source>
        <translation>&amp;Spalten</translation>
    </message>
    <message>
        <source>Stampa lista...</source>
        <translation>Liste dr&amp;ucken...</translation>
    </message>
    <message>
        <source>&amp;Completa dalla musica...</source>
        <translation>Aus der M&amp;usik ergänzen...</translation>
    </message>
    <message>
        <source>Scegli song</source>
        <translation>Songs auswählen</translation>
    </message>
    <message>
        <source>Sincronizza</source>
        <translation>Synchronisieren</translation>
    </message>
    <message>
        <source>Trasferisci</source>
        <translation>Übertragen</translation>
    </message>
    <message>
        <source>&amp;Tasti di scelta rapida...</source>
        <translation>&amp;Tastenkürzel...</translation>
    </message>
</context>
<context>
    <name>MemoryList</name>
    <message>
        <source>Scegli cartella</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>%1 – %2 liberi di %3</source>
        <translation>%1 – %2 von %3 frei</translation>
    </message>
    <message>
        <source>Nessuna memoria collegata</source>
        <translation>Kein Speicher angeschlossen</translation>
    </message>
    <message>
        <source>Scegli una memoria</source>
        <translation>Speicher auswählen</translation>
    </message>
</context>
<context>
    <name>MemoryLock</name>
    <message>
        <source>Nella memoria c&apos;è una cartella &quot;%1&quot;: il programma ha bisogno di questo nome.
Spostarla o cancellarla e riprovare.</source>
        <translation>Auf dem Speicher liegt ein Ordner „%1“: Das Programm braucht diesen Namen.
Bitte verschieben oder löschen Sie ihn und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Un altro programma sta scrivendo su questa memoria.
Non è stato cambiato nulla. Riprovare quando avrà finito.</source>
        <translation>Ein anderes Programm schreibt gerade auf diesen Speicher.
Es wurde nichts geändert. Bitte versuchen Sie es noch einmal, wenn es fertig ist.</translation>
    </message>
    <message>
        <source>Un altro programma sta scrivendo su questa memoria: %1 (processo %2 sul computer %3, dal %4).
Non è stato cambiato nulla. Riprovare quando avrà finito.</source>
        <translation>Ein anderes Programm schreibt gerade auf diesen Speicher: %1 (Prozess %2 auf dem Computer %3, seit %4).
Es wurde nichts geändert. Bitte versuchen Sie es noch einmal, wenn es fertig ist.</translation>
    </message>
</context>
<context>
    <name>NoCopyrightDialog</name>
    <message>
        <source>Richiesta conferma</source>
        <translation>Bestätigung</translation>
    </message>
    <message>
        <source>Il file:</source>
        <translation>Datei:</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Non è stato pubblicato da K-Ravo. Si vuole procedere comunque con le modifiche?</source>
        <translation>Diese Datei wurde nicht von K-Ravo veröffentlicht. Möchten Sie sie trotzdem ändern?</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>Si tutti</source>
        <translation>Ja, &amp;alle</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>No tutti</source>
        <translation>Nein, &amp;keine</translation>
    </message>
</context>
<context>
    <name>ProceedDialog</name>
    <message>
        <source>Riassunto importazione</source>
        <translation>Eingelesene Songs</translation>
    </message>
    <message>
        <source>Si vuole procedere alla sincronizzazione automatica con il database?</source>
        <translation>Möchten Sie die Songs jetzt mit der Datenbank synchronisieren?</translation>
    </message>
    <message>
        <source>Non mostrare più messaggi sul copyright</source>
        <translation>&amp;Keine Copyright-Meldungen mehr anzeigen</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)K-Ravo</source>
        <translation>Untersuchte Dateien: %1, gefundene Songs: %2, davon von © K-Ravo: %3</translation>
    </message>
</context>
<context>
    <name>SongsListDialog</name>
    <message>
        <source>Salva lista song</source>
        <translation>Songliste speichern</translation>
    </message>
    <message>
        <source>CF/USB:</source>
        <translation>&amp;Ordner:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>&amp;Datei:</translation>
    </message>
    <message>
        <source>Ordina per:</source>
        <translation>Sortieren &amp;nach:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Musikrichtung</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Sch&amp;ließen</translation>
    </message>
    <message>
        <source>Scegli nome del file</source>
        <translation>Dateinamen auswählen</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>Den gewählten Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation>Den Zielordner gibt es nicht</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Vorgang abgeschlossen</translation>
    </message>
    <message>
        <source>Impossibile proseguire, la memoria non è preparata per Kavena</source>
        <translation>Die Liste kann nicht erstellt werden: Der Speicher ist nicht für RB27 vorbereitet</translation>
    </message>
    <message>
        <source>Errore durante la creazione del file</source>
        <translation>Beim Erstellen der Datei ist ein Fehler aufgetreten</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>S&amp;peicher:</translation>
    </message>
    <message>
        <source>File (*.csv)</source>
        <translation>Datei (*.csv)</translation>
    </message>
</context>
<context>
    <name>SortMenu</name>
    <message>
        <source>Ordine di importazione</source>
        <translation>Reihenfolge des Einlesens</translation>
    </message>
</context>
<context>
    <name>StatusSummary</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n Song</numerusform>
            <numerusform>%n Songs</numerusform>
        </translation>
    </message>
    <message>
        <source>mostrate: %1</source>
        <translation>angezeigt: %1</translation>
    </message>
    <message>
        <source>nuove: %1</source>
        <translation>neu: %1</translation>
    </message>
    <message>
        <source>sincronizzate: %1</source>
        <translation>synchronisiert: %1</translation>
    </message>
    <message>
        <source>modificate: %1</source>
        <translation>bearbeitet: %1</translation>
    </message>
    <message>
        <source>non sincronizzate: %1</source>
        <translation>nicht synchronisiert: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n file non leggibili...</source>
        <translation>
            <numerusform>%n Datei nicht lesbar...</numerusform>
            <numerusform>%n Dateien nicht lesbar...</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n tag da preparare...</source>
        <translation>
            <numerusform>%n Tag vorzubereiten...</numerusform>
            <numerusform>%n Tags vorzubereiten...</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UnreadableFilesDialog</name>
    <message>
        <source>File non leggibili</source>
        <translation>Nicht lesbare Dateien</translation>
    </message>
    <message>
        <source>Questi file non sono stati inseriti &amp;nella lista:</source>
        <translation>Diese Dateien wurden &amp;nicht in die Liste aufgenommen:</translation>
    </message>
    <message>
        <source>Il file non esiste</source>
        <translation>Die Datei gibt es nicht</translation>
    </message>
    <message>
        <source>Non è un file normale</source>
        <translation>Keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>Il file non può essere aperto</source>
        <translation>Die Datei lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>Il file è vuoto</source>
        <translation>Die Datei ist leer</translation>
    </message>
    <message>
        <source>Formato non riconosciuto</source>
        <translation>Format nicht erkannt</translation>
    </message>
    <message>
        <source>Il file è danneggiato</source>
        <translation>Die Datei ist beschädigt</translation>
    </message>
</context>
<context>
    <name>UserSongsRelTableModel</name>
    <message>
        <source>Num</source>
        <translation>Nr.</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Musikrichtung</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalita&apos;</source>
        <translation>Tonart</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Cartella</source>
        <translation>Ordner</translation>
    </message>
</context>
<context>
    <name>WriteProblem</name>
    <message>
        <source>La memoria non c&apos;è più. È stata estratta?</source>
        <translation>Der Speicher ist nicht mehr da. Wurde er herausgezogen?</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura.
Togliere la protezione e riprovare.</source>
        <translation>Der Speicher ist schreibgeschützt.
Bitte heben Sie den Schutz auf und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>La memoria è piena.
Liberare spazio e riprovare.</source>
        <translation>Der Speicher ist voll.
Bitte schaffen Sie Platz und versuchen Sie es noch einmal.</translation>
    </message>
    <message>
        <source>Manca il permesso di scrivere sulla memoria.</source>
        <translation>Sie dürfen auf diesen Speicher nicht schreiben.</translation>
    </message>
    <message>
        <source>Non è possibile scrivere sulla memoria.</source>
        <translation>Auf den Speicher kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>die Datei ist nicht mehr da</translation>
    </message>
    <message>
        <source>una cartella ha già questo nome</source>
        <translation>ein Ordner heißt schon so</translation>
    </message>
    <message>
        <source>il nome è troppo lungo</source>
        <translation>der Name ist zu lang</translation>
    </message>
    <message>
        <source>il file non può essere letto</source>
        <translation>die Datei ist nicht lesbar</translation>
    </message>
    <message>
        <source>la cartella non c&apos;è più (la memoria è stata estratta?)</source>
        <translation>der Ordner ist nicht mehr da (wurde der Speicher herausgezogen?)</translation>
    </message>
    <message>
        <source>la memoria è protetta da scrittura</source>
        <translation>der Speicher ist schreibgeschützt</translation>
    </message>
    <message>
        <source>la memoria è piena</source>
        <translation>der Speicher ist voll</translation>
    </message>
    <message>
        <source>manca il permesso di scrivere</source>
        <translation>Sie dürfen dort nicht schreiben</translation>
    </message>
    <message>
        <source>non può essere scritto</source>
        <translation>sie kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>la memoria non ammette questi caratteri nel nome: %1</source>
        <translation>der Speicher erlaubt diese Zeichen im Namen nicht: %1</translation>
    </message>
    <message>
        <source>la memoria non ammette questo nome</source>
        <translation>der Speicher erlaubt diesen Namen nicht</translation>
    </message>
</context>
<context>
    <name>FileListDialog</name>
    <message>
        <source>Nome file</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Motivo</source>
        <translation>Grund</translation>
    </message>
    <message>
        <source>&amp;Chiudi</source>
        <translation>S&amp;chließen</translation>
    </message>
</context>
<context>
    <name>MissingLibrary</name>
    <message>
        <source>La lista delle song non è disponibile</source>
        <translation>Die Songliste ist nicht verfügbar</translation>
    </message>
    <message>
        <source>Il database delle song non può essere aperto: le song non possono essere elencate, sincronizzate o trasferite.

Controllare che nella cartella dei file temporanei (%1) ci sia spazio e che vi si possa scrivere, poi riavviare il programma.</source>
        <translation>Die Songliste lässt sich nicht öffnen: Songs können weder aufgelistet noch synchronisiert noch übertragen werden.

Bitte prüfen Sie, ob im Ordner für vorübergehende Dateien (%1) Platz ist und ob darin geschrieben werden darf, und starten Sie das Programm dann neu.</translation>
    </message>
    <message>
        <source>Il programma non è installato per intero: manca il modulo di Qt per i database SQLite. Le song non possono essere elencate, sincronizzate o trasferite.

Installare di nuovo il programma.</source>
        <translation>Das Programm ist nicht vollständig installiert: Der Qt-Baustein für SQLite-Datenbanken fehlt. Songs können weder aufgelistet noch synchronisiert noch übertragen werden.

Bitte installieren Sie das Programm neu.</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Achtung</translation>
    </message>
</context>
<context>
    <name>RunReport</name>
    <message numerus="yes">
        <source>%n song non sono state salvate.</source>
        <translation>
            <numerusform>%n Song konnte nicht gespeichert werden.</numerusform>
            <numerusform>%n Songs konnten nicht gespeichert werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Non salvata: %1</source>
        <translation>Nicht gespeichert: %1</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura</source>
        <translation>Der Speicher ist schreibgeschützt</translation>
    </message>
    <message>
        <source>Non c&apos;è più spazio</source>
        <translation>Kein Platz mehr frei</translation>
    </message>
    <message>
        <source>Il file non c&apos;è più</source>
        <translation>Die Datei ist nicht mehr da</translation>
    </message>
    <message>
        <source>Il file non può essere modificato: mancano i permessi</source>
        <translation>Sie haben kein Recht, die Datei zu ändern</translation>
    </message>
    <message>
        <source>Il file è in uso da un altro programma</source>
        <translation>Ein anderes Programm benutzt die Datei</translation>
    </message>
    <message>
        <source>La memoria dà errori o è stata tolta</source>
        <translation>Der Speicher ist fehlerhaft oder wurde entfernt</translation>
    </message>
    <message>
        <source>I dati sono troppi per questo formato</source>
        <translation>Die Angaben sind zu lang für dieses Format</translation>
    </message>
    <message>
        <source>Il file non è leggibile</source>
        <translation>Die Datei ist nicht lesbar</translation>
    </message>
    <message>
        <source>Il file non può essere scritto</source>
        <translation>Die Datei lässt sich nicht schreiben</translation>
    </message>
    <message numerus="yes">
        <source>In %n song ci sono caratteri che il player mostra come &quot;?&quot;.</source>
        <translation>
            <numerusform>In %n Song zeigt der Player „?“ statt einzelner Zeichen.</numerusform>
            <numerusform>In %n Songs zeigt der Player „?“ statt einzelner Zeichen.</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;?&quot; al posto di: %1</source>
        <translation>„?“ statt: %1</translation>
    </message>
</context>
<context>
    <name>RunReportBox</name>
    <message>
        <source>Aggiornamento file</source>
        <translation>Songs speichern</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Songs anzeigen...</translation>
    </message>
    <message>
        <source>Nella lista hanno un segnale di avviso. Tenendovi sopra il mouse si legge il motivo.</source>
        <translation>In der Liste tragen sie ein Warnzeichen. Der Grund erscheint, wenn die Maus auf der Zeile steht.</translation>
    </message>
    <message>
        <source>Dettagli</source>
        <translation>Betroffene Songs</translation>
    </message>
    <message>
        <source>Queste &amp;song non sono a posto:</source>
        <translation>Bei diesen &amp;Songs ging etwas schief:</translation>
    </message>
</context>
<context>
    <name>Arguments</name>
    <message>
        <source>Argomento sconosciuto: %1</source>
        <translation>Unbekanntes Argument: %1</translation>
    </message>
    <message>
        <source>L&apos;opzione vuole un solo valore: %1</source>
        <translation>Die Option braucht genau einen Wert: %1</translation>
    </message>
    <message>
        <source>Argomenti non validi</source>
        <translation>Ungültige Argumente</translation>
    </message>
    <message>
        <source>L&apos;opzione non vuole un valore: %1</source>
        <translation>Die Option nimmt keinen Wert: %1</translation>
    </message>
    <message>
        <source>Valore non valido per %1: %2</source>
        <translation>Ungültiger Wert für %1: %2</translation>
    </message>
    <message>
        <source>Manca il comando</source>
        <translation>Es fehlt der Befehl</translation>
    </message>
    <message>
        <source>Manca il dato da modificare, per esempio --title</source>
        <translation>Es fehlt, was geändert werden soll, zum Beispiel --title</translation>
    </message>
    <message>
        <source>Manca la cartella di destinazione: --to CARTELLA</source>
        <translation>Es fehlt der Zielordner: --to ORDNER</translation>
    </message>
    <message>
        <source>Manca un argomento</source>
        <translation>Es fehlt ein Argument</translation>
    </message>
    <message>
        <source>Mancano i file</source>
        <translation>Es fehlen die Dateien</translation>
    </message>
    <message>
        <source>Troppi argomenti</source>
        <translation>Zu viele Argumente</translation>
    </message>
    <message>
        <source>--json e --csv non vanno insieme</source>
        <translation>--json und --csv gehen nicht zusammen</translation>
    </message>
    <message>
        <source>%1 vale solo con %2</source>
        <translation>%1 geht nur mit %2</translation>
    </message>
    <message>
        <source>--csv e --duplicates non vanno insieme</source>
        <translation>--csv und --duplicates gehen nicht zusammen</translation>
    </message>
    <message>
        <source>Un nome è vuoto</source>
        <translation>Ein Name ist leer</translation>
    </message>
    <message>
        <source>Manca un passo, per esempio --pattern</source>
        <translation>Ein Schritt fehlt, zum Beispiel --pattern</translation>
    </message>
    <message>
        <source>Manca il file da scrivere: --to WAV</source>
        <translation>Es fehlt die Datei, die geschrieben wird: --to WAV</translation>
    </message>
</context>
<context>
    <name>CatalogueCommand</name>
    <message>
        <source>Il catalogo non può essere aperto</source>
        <translation>Der Katalog lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>Non è nel catalogo</source>
        <translation>Steht nicht im Katalog</translation>
    </message>
    <message>
        <source>Non contiene voci</source>
        <translation>Enthält keine Einträge</translation>
    </message>
    <message>
        <source>La voce è già nel catalogo. Sostituirla?</source>
        <translation>Der Eintrag steht schon im Katalog. Ersetzen?</translation>
    </message>
    <message>
        <source>Non c&apos;è ancora un catalogo</source>
        <translation>Es gibt noch keinen Katalog</translation>
    </message>
    <message>
        <source>Il file esiste già. Sostituirlo?</source>
        <translation>Die Datei ist schon vorhanden. Ersetzen?</translation>
    </message>
    <message>
        <source>Catalogo</source>
        <translation>Katalog</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>titolo</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>interprete</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>genere</source>
        <translation>Musikrichtung</translation>
    </message>
    <message>
        <source>autore</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>tonalità, per esempio C, F# o A-; vuota per nessuna</source>
        <translation>Tonart, zum Beispiel C, F# oder A-; leer für keine</translation>
    </message>
    <message>
        <source>tempo, da 0 a 999; 0 per nessuno</source>
        <translation>Tempo, 0 bis 999; 0 für keines</translation>
    </message>
    <message>
        <source>durata in minuti e secondi</source>
        <translation>Dauer in Minuten und Sekunden</translation>
    </message>
    <message>
        <source>copia prima le song in una nuova cartella in DIR</source>
        <translation>kopiert die Songs zuerst in einen neuen Ordner in DIR</translation>
    </message>
    <message>
        <source>mostra le modifiche e non scrive niente</source>
        <translation>zeigt die Änderungen und schreibt nichts</translation>
    </message>
    <message>
        <source>modifica anche le song senza la firma del produttore</source>
        <translation>ändert auch Songs ohne die Signatur des Herstellers</translation>
    </message>
    <message>
        <source>la cartella di destinazione, in una memoria</source>
        <translation>der Zielordner, auf einem Speicher</translation>
    </message>
    <message>
        <source>accorcia i nomi troppo lunghi per il player</source>
        <translation>kürzt Namen, die für den Player zu lang sind</translation>
    </message>
    <message>
        <source>l&apos;ordine dell&apos;elenco</source>
        <translation>die Reihenfolge der Liste</translation>
    </message>
    <message>
        <source>una tabella con i campi separati da &quot;;&quot;</source>
        <translation>eine Tabelle, Felder durch &quot;;&quot; getrennt</translation>
    </message>
    <message>
        <source>un oggetto JSON per riga; i nomi sono nella pagina di manuale</source>
        <translation>ein JSON-Objekt je Zeile; die Namen stehen in der Handbuchseite</translation>
    </message>
    <message>
        <source>legge altri nomi dallo standard input, ognuno chiuso da un byte zero</source>
        <translation>liest weitere Namen aus der Standardeingabe, jeder mit einem Nullbyte beendet</translation>
    </message>
    <message>
        <source>Esempi:</source>
        <translation>Beispiele:</translation>
    </message>
    <message>
        <source>Uso:</source>
        <translation>Aufruf:</translation>
    </message>
    <message>
        <source>Opzioni:</source>
        <translation>Optionen:</translation>
    </message>
    <message>
        <source>mostra questo aiuto</source>
        <translation>zeigt diese Hilfe</translation>
    </message>
    <message>
        <source>mostra la versione</source>
        <translation>zeigt die Version</translation>
    </message>
    <message>
        <source>dopo ci sono solo nomi di file</source>
        <translation>danach folgen nur Dateinamen</translation>
    </message>
    <message>
        <source>Le domande senza risposta nelle opzioni si fanno solo su un terminale; altrove valgono come no.
Stato d&apos;uscita: 0 fatto, 1 fatto in parte, 2 uso errato, 3 niente di fatto.</source>
        <translation>Fragen, die keine Option beantwortet, werden nur an einem Terminal gestellt; sonst gelten sie als Nein.
Exit-Status: 0 erledigt, 1 teilweise erledigt, 2 falscher Aufruf, 3 nichts getan.</translation>
    </message>
    <message>
        <source>rilegge dalla memoria ogni copia e la confronta</source>
        <translation>liest jede Kopie vom Speicher zurück und vergleicht sie</translation>
    </message>
    <message>
        <source>copia ciò che è nuovo o diverso ed elenca le song in più</source>
        <translation>kopiert, was neu oder anders ist, und nennt die übrigen Songs</translation>
    </message>
    <message>
        <source>con --in-line: rimuove le song in più, con le loro immagini</source>
        <translation>mit --in-line: entfernt die übrigen Songs mit ihren Bildern</translation>
    </message>
    <message>
        <source>solo le song che ci sono più volte, per gruppi</source>
        <translation>nur die Songs, die mehrfach da sind, in Gruppen</translation>
    </message>
    <message>
        <source>elimina le song senza chiedere</source>
        <translation>entfernt die Songs, ohne zu fragen</translation>
    </message>
    <message>
        <source>anche una cartella che non è in una memoria</source>
        <translation>auch einen Ordner, der auf keinem Speicher liegt</translation>
    </message>
    <message>
        <source>modifica anche se la cronologia non può essere usata</source>
        <translation>auch ändern, wenn der Verlauf nicht benutzt werden kann</translation>
    </message>
    <message>
        <source>annulla anche nelle song cambiate dopo</source>
        <translation>auch bei Songs zurücknehmen, die danach geändert wurden</translation>
    </message>
    <message>
        <source>i dati dal nome del file, per esempio %track - %artist - %title</source>
        <translation>Angaben aus dem Dateinamen, zum Beispiel %track - %artist - %title</translation>
    </message>
    <message>
        <source>un valore per tutte le song</source>
        <translation>ein Wert für alle Songs</translation>
    </message>
    <message>
        <source>un testo al posto di un altro</source>
        <translation>ein Text anstelle eines anderen</translation>
    </message>
    <message>
        <source>lo stesso con un&apos;espressione regolare</source>
        <translation>dasselbe mit einem regulären Ausdruck</translation>
    </message>
    <message>
        <source>le maiuscole non contano nei testi da cercare</source>
        <translation>beim Suchen gilt Groß wie Klein</translation>
    </message>
    <message>
        <source>maiuscole: title, upper, lower o first</source>
        <translation>Groß und Klein: title, upper, lower oder first</translation>
    </message>
    <message>
        <source>due campi si scambiano</source>
        <translation>zwei Felder tauschen ihre Inhalte</translation>
    </message>
    <message>
        <source>toglie gli spazi in più; &quot;_&quot; diventa uno spazio</source>
        <translation>entfernt überzählige Leerzeichen; aus &quot;_&quot; wird eines</translation>
    </message>
    <message>
        <source>i dati da un elenco, per nome del file</source>
        <translation>Angaben aus einer Liste, nach dem Dateinamen</translation>
    </message>
    <message>
        <source>i nomi dei file dai dati, per esempio %artist - %title</source>
        <translation>Dateinamen aus den Angaben, zum Beispiel %artist - %title</translation>
    </message>
    <message>
        <source>con --rename: solo nomi che il player può mostrare</source>
        <translation>mit --rename: nur Namen, die der Player zeigen kann</translation>
    </message>
    <message>
        <source>scrive; altrimenti mostra soltanto</source>
        <translation>schreibt; sonst wird nur angezeigt</translation>
    </message>
    <message>
        <source>scrive ciò che altrimenti viene solo mostrato</source>
        <translation>schreibt, was sonst nur gezeigt wird</translation>
    </message>
    <message>
        <source>sostituisce i file, o le voci, che ci sono già</source>
        <translation>ersetzt Dateien oder Einträge, die schon da sind</translation>
    </message>
    <message>
        <source>il file WAV da scrivere</source>
        <translation>die WAV-Datei, die geschrieben wird</translation>
    </message>
    <message>
        <source>il sound font per le song MIDI; altrimenti uno installato</source>
        <translation>der Soundfont für MIDI-Songs; sonst ein installierter</translation>
    </message>
</context>
<context>
    <name>IndexCommand</name>
    <message>
        <source>%1: la memoria non è in ordine</source>
        <translation>%1: Der Speicher ist nicht in Ordnung</translation>
    </message>
    <message>
        <source>Aggiornamento database</source>
        <translation>Songverzeichnis wird aktualisiert</translation>
    </message>
    <message>
        <source>Nessuna song nella memoria</source>
        <translation>Keine Songs auf dem Speicher</translation>
    </message>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima di usarla</source>
        <translation>Der Speicher hat kein vollständiges Songverzeichnis: vor dem Benutzen aktualisieren</translation>
    </message>
    <message>
        <source>La cartella non è in una memoria collegata e non ha un database (%1: la prende comunque)</source>
        <translation>Der Ordner liegt auf keinem angeschlossenen Speicher und hat kein Songverzeichnis (%1 nimmt ihn trotzdem)</translation>
    </message>
</context>
<context>
    <name>ListCommand</name>
    <message>
        <source>Il database della memoria è danneggiato</source>
        <translation>Das Songverzeichnis ist beschädigt</translation>
    </message>
    <message>
        <source>Lettura della memoria</source>
        <translation>Speicher wird gelesen</translation>
    </message>
    <message>
        <source>La memoria non è leggibile</source>
        <translation>Der Speicher ist nicht lesbar</translation>
    </message>
    <message>
        <source>La cartella non è leggibile</source>
        <translation>Der Ordner ist nicht lesbar</translation>
    </message>
    <message>
        <source>Il file non è leggibile</source>
        <translation>Die Datei ist nicht lesbar</translation>
    </message>
</context>
<context>
    <name>MemoryCheck</name>
    <message>
        <source>%1 byte non sono un numero intero di record</source>
        <translation>%1 Bytes sind keine ganze Zahl von Datensätzen</translation>
    </message>
    <message>
        <source>Il file manca o non è leggibile: la memoria non ha un database completo</source>
        <translation>Die Datei fehlt oder ist nicht lesbar: Der Speicher hat kein vollständiges Songverzeichnis</translation>
    </message>
    <message>
        <source>Troppe song: %1</source>
        <translation>Zu viele Songs: %1</translation>
    </message>
    <message>
        <source>Il record %1 di %2 ha un numero di song sbagliato: %3</source>
        <translation>Datensatz %1 von %2 hat eine falsche Songnummer: %3</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non finisce con zeri</source>
        <translation>Datensatz %1 von %2 endet nicht mit Nullen</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non è un percorso della memoria</source>
        <translation>Datensatz %1 von %2 nennt keine Datei auf dem Speicher</translation>
    </message>
    <message>
        <source>La song è elencata due volte</source>
        <translation>Der Song ist zweimal aufgeführt</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non ha una data</source>
        <translation>Datensatz %1 von %2 hat kein Datum</translation>
    </message>
    <message>
        <source>Il file non c&apos;è</source>
        <translation>Die Datei gibt es nicht</translation>
    </message>
    <message>
        <source>Il file è stato modificato dopo l&apos;aggiornamento</source>
        <translation>Die Datei wurde nach der Aktualisierung geändert</translation>
    </message>
    <message>
        <source>La song non è nel database</source>
        <translation>Der Song steht nicht im Songverzeichnis</translation>
    </message>
    <message>
        <source>La dimensione non corrisponde al numero di song</source>
        <translation>Die Größe passt nicht zur Anzahl der Songs</translation>
    </message>
    <message>
        <source>Non elenca ogni song una volta</source>
        <translation>Führt nicht jeden Song einmal auf</translation>
    </message>
    <message>
        <source>%1 è al posto sbagliato</source>
        <translation>%1 steht am falschen Platz</translation>
    </message>
    <message>
        <source>Il titolo del record %1 non finisce con zeri</source>
        <translation>Der Titel in Datensatz %1 endet nicht mit Nullen</translation>
    </message>
    <message>
        <source>Il formato del record %1 non esiste</source>
        <translation>Das Format in Datensatz %1 gibt es nicht</translation>
    </message>
    <message>
        <source>Il record %1, %2, è al posto sbagliato</source>
        <translation>Datensatz %1, %2, steht am falschen Platz</translation>
    </message>
    <message>
        <source>La song %1 del record %2 è elencata due volte o non ha un file</source>
        <translation>Song %1 in Datensatz %2 ist zweimal aufgeführt oder hat keine Datei</translation>
    </message>
    <message>
        <source>La song %1 è diversa che in %2</source>
        <translation>Song %1 ist anders als in %2</translation>
    </message>
    <message>
        <source>Song mancanti alla fine: %1</source>
        <translation>Am Ende fehlende Songs: %1</translation>
    </message>
    <message>
        <source>Song mancanti prima del gruppo %1: %2</source>
        <translation>Vor der Gruppe %1 fehlende Songs: %2</translation>
    </message>
    <message>
        <source>Il gruppo %1 conta male le song del gruppo precedente: %2 invece di %3</source>
        <translation>Die Gruppe %1 zählt die Songs der Gruppe davor falsch: %2 statt %3</translation>
    </message>
    <message>
        <source>L&apos;inizio del gruppo nel record %1 è danneggiato</source>
        <translation>Der Anfang der Gruppe in Datensatz %1 ist beschädigt</translation>
    </message>
    <message>
        <source>Il gruppo %1 c&apos;è due volte</source>
        <translation>Die Gruppe %1 gibt es zweimal</translation>
    </message>
    <message>
        <source>Il record %1 è una song in più di quelle del suo gruppo</source>
        <translation>Datensatz %1 ist ein Song mehr, als seine Gruppe hat</translation>
    </message>
    <message>
        <source>La song %1 del record %2 è elencata due volte o è diversa che in %3</source>
        <translation>Song %1 in Datensatz %2 ist zweimal aufgeführt oder anders als in %3</translation>
    </message>
    <message>
        <source>La song %1 è in un altro gruppo che in %2</source>
        <translation>Song %1 steht in einer anderen Gruppe als in %2</translation>
    </message>
    <message>
        <source>%1 byte invece di %2</source>
        <translation>%1 Bytes statt %2</translation>
    </message>
    <message>
        <source>L&apos;iniziale %1 porta al posto sbagliato</source>
        <translation>Der Anfangsbuchstabe %1 führt an die falsche Stelle</translation>
    </message>
    <message>
        <source>I numeri di song, interpreti e generi non sono quelli degli elenchi</source>
        <translation>Die Anzahlen der Songs, Interpreten und Musikrichtungen sind nicht die der Listen</translation>
    </message>
    <message>
        <source>La song %1 della playlist non è nella memoria</source>
        <translation>Song %1 der Playlist ist nicht auf dem Speicher</translation>
    </message>
    <message>
        <source>La cartella non può essere letta</source>
        <translation>Der Ordner kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Il nome non è in UTF-8</source>
        <translation>Der Name enthält unlesbare Zeichen</translation>
    </message>
    <message>
        <source>Il percorso supera %1 caratteri</source>
        <translation>Der Name mit allen Ordnern ist länger als %1 Zeichen</translation>
    </message>
    <message>
        <source>Il database non mostra ciò che il file dice</source>
        <translation>Das Songverzeichnis zeigt nicht, was in der Datei steht</translation>
    </message>
    <message>
        <source>Il file della playlist manca o non è leggibile</source>
        <translation>Die Datei der Playlist fehlt oder ist nicht lesbar</translation>
    </message>
    <message>
        <source>La song non è nel database: il nome differisce da un altro solo per le maiuscole</source>
        <translation>Der Song steht nicht im Songverzeichnis: Der Name unterscheidet sich nur in Groß- und Kleinschreibung von einem anderen</translation>
    </message>
</context>
<context>
    <name>PeopleWriter</name>
    <message>
        <source>Formato</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Firma</source>
        <translation>Signatur</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>ja</translation>
    </message>
    <message>
        <source>no</source>
        <translation>nein</translation>
    </message>
    <message>
        <source>%1: non è nel catalogo</source>
        <translation>%1: nicht im Katalog</translation>
    </message>
    <message>
        <source>%1: nessuna modifica</source>
        <translation>%1: keine Änderung</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Da copiare: %1; liberi: %2; song nella memoria dopo: %3</source>
        <translation>Zu kopieren: %1; frei: %2; Songs auf dem Speicher danach: %3</translation>
    </message>
    <message>
        <source>nuova</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>già presente</source>
        <translation>schon da</translation>
    </message>
    <message>
        <source>diversa</source>
        <translation>anders</translation>
    </message>
    <message>
        <source>già presente con un altro nome</source>
        <translation>schon da unter anderem Namen</translation>
    </message>
    <message>
        <source>stesso nome di un&apos;altra song</source>
        <translation>gleicher Name wie ein anderer Song</translation>
    </message>
    <message>
        <source>illeggibile</source>
        <translation>nicht lesbar</translation>
    </message>
    <message>
        <source>nome non possibile sulla memoria</source>
        <translation>Name auf dem Speicher nicht möglich</translation>
    </message>
    <message>
        <source>non è nell&apos;elenco</source>
        <translation>nicht in der Liste</translation>
    </message>
    <message>
        <source>Gli stessi byte:</source>
        <translation>Dieselben Bytes:</translation>
    </message>
    <message>
        <source>Stesso titolo e interprete:</source>
        <translation>Derselbe Titel und Interpret:</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n Song</numerusform>
            <numerusform>%n Songs</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, annullato</source>
        <translation>%1, zurückgenommen</translation>
    </message>
    <message>
        <source>Catalogo</source>
        <translation>Katalog</translation>
    </message>
    <message>
        <source>%1 (stimata)</source>
        <translation>%1 (geschätzt)</translation>
    </message>
    <message>
        <source>Scritti</source>
        <translation>Geschrieben</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>aiuto: kavena %1--help</source>
        <translation>Hilfe: kavena %1--help</translation>
    </message>
    <message>
        <source>Non tutti i dati hanno potuto essere scritti sullo standard output</source>
        <translation>Die Standardausgabe konnte nicht vollständig geschrieben werden</translation>
    </message>
</context>
<context>
    <name>SetCommand</name>
    <message>
        <source>Modifica</source>
        <translation>Ändere</translation>
    </message>
    <message>
        <source>%1: %2 accorciato a %3 caratteri: %4</source>
        <translation>%1: %2 auf %3 Zeichen gekürzt: %4</translation>
    </message>
</context>
<context>
    <name>ShowCommand</name>
    <message>
        <source>Lettura</source>
        <translation>Lese</translation>
    </message>
</context>
<context>
    <name>SongPaths</name>
    <message>
        <source>L&apos;elenco non può essere letto</source>
        <translation>Die Liste kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>La cartella non può essere letta</source>
        <translation>Der Ordner kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Il nome non è in UTF-8 e il file non può essere aperto</source>
        <translation>Der Name ist nicht in UTF-8, und die Datei lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>Un nome è vuoto</source>
        <translation>Ein Name ist leer</translation>
    </message>
</context>
<context>
    <name>SyncCommand</name>
    <message>
        <source>Il catalogo non può essere aperto</source>
        <translation>Der Katalog lässt sich nicht öffnen</translation>
    </message>
    <message>
        <source>Sincronizzazione</source>
        <translation>Synchronisiere</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Sicherung</translation>
    </message>
    <message>
        <source>La song non ha la firma del produttore. Modificarla?</source>
        <translation>Der Song hat nicht die Signatur des Herstellers. Ändern?</translation>
    </message>
    <message>
        <source>%1: non modificata, senza la firma del produttore</source>
        <translation>%1: nicht geändert, ohne Signatur des Herstellers</translation>
    </message>
    <message>
        <source>%1: senza la firma del produttore, viene modificata solo se la risposta è sì (%2)</source>
        <translation>%1: ohne Signatur des Herstellers, wird nur geändert, wenn die Antwort Ja ist (%2)</translation>
    </message>
</context>
<context>
    <name>Terminal</name>
    <message>
        <source>Interrotto</source>
        <translation>Abgebrochen</translation>
    </message>
    <message>
        <source>Senza terminale la risposta è no: %1</source>
        <translation>Ohne Terminal ist die Antwort Nein: %1</translation>
    </message>
    <message>
        <source>Senza terminale la risposta è no (%1 yes la cambia): %2</source>
        <translation>Ohne Terminal ist die Antwort Nein (%1 yes ändert das): %2</translation>
    </message>
    <message>
        <source>s</source>
        <translation>j</translation>
    </message>
    <message>
        <source>n</source>
        <translation>n</translation>
    </message>
    <message>
        <source>[%1 = sì, %2 = sì a tutti, %3 = no, %4 = no a tutti]</source>
        <translation>[%1 = ja, %2 = ja für alle, %3 = nein, %4 = nein für alle]</translation>
    </message>
</context>
<context>
    <name>PlanExecution</name>
    <message>
        <source>nel frattempo un altro file ha questo nome</source>
        <translation>inzwischen hat eine andere Datei diesen Namen</translation>
    </message>
    <message>
        <source>la sua cartella è un collegamento che porta fuori dalla memoria</source>
        <translation>ihr Ordner ist eine Verknüpfung, die aus dem Speicher hinausführt</translation>
    </message>
    <message>
        <source>restano le immagini della song che è stata sostituita</source>
        <translation>die Bilder des ersetzten Songs sind noch da</translation>
    </message>
    <message>
        <source>non è più sulla memoria</source>
        <translation>nicht mehr auf dem Speicher</translation>
    </message>
    <message>
        <source>esisteva già e non è stata sostituita</source>
        <translation>war schon da und wurde nicht ersetzt</translation>
    </message>
    <message>
        <source>un&apos;altra song dell&apos;elenco ha lo stesso nome</source>
        <translation>ein anderer Song der Liste hat den gleichen Namen</translation>
    </message>
    <message>
        <source>è già nella memoria</source>
        <translation>ist schon auf dem Speicher</translation>
    </message>
    <message>
        <source>è già nella memoria come %1</source>
        <translation>ist als %1 schon auf dem Speicher</translation>
    </message>
    <message>
        <source>un&apos;altra song dell&apos;elenco ha preso il suo posto</source>
        <translation>ein anderer Song der Liste hat seinen Platz bekommen</translation>
    </message>
    <message>
        <source>saltata come scelto nel piano</source>
        <translation>übersprungen, wie im Plan gewählt</translation>
    </message>
    <message>
        <source>non rimossa, la copia è stata interrotta</source>
        <translation>nicht entfernt, das Kopieren wurde angehalten</translation>
    </message>
    <message>
        <source>non rimossa, non tutte le song sono state copiate</source>
        <translation>nicht entfernt, nicht alle Songs wurden kopiert</translation>
    </message>
    <message>
        <source>non rimossa, il database della memoria non può essere aggiornato</source>
        <translation>nicht entfernt, das Songverzeichnis des Speichers kann nicht aktualisiert werden</translation>
    </message>
</context>
<context>
    <name>PlannedRemoval</name>
    <message>
        <source>non è più il file di prima</source>
        <translation>nicht mehr dieselbe Datei</translation>
    </message>
    <message>
        <source>non rimossa, la rimozione è stata interrotta</source>
        <translation>nicht entfernt, das Entfernen wurde angehalten</translation>
    </message>
</context>
<context>
    <name>TransferCommand</name>
    <message>
        <source>Song con il nome di un&apos;altra song indicata: %1. Con %2 ognuna ha un nome suo.</source>
        <translation>Songs mit dem Namen eines anderen angegebenen Songs: %1. Mit %2 bekommt jeder einen eigenen Namen.</translation>
    </message>
    <message>
        <source>Song già nella memoria con un nome accorciato, che non vengono copiate di nuovo: %1</source>
        <translation>Songs, die unter einem gekürzten Namen schon auf dem Speicher sind und nicht noch einmal kopiert werden: %1</translation>
    </message>
    <message>
        <source>Song della memoria che non sono nell&apos;elenco: %1</source>
        <translation>Songs auf dem Speicher, die nicht in der Liste sind: %1</translation>
    </message>
    <message>
        <source>Restano; %1 le rimuove.</source>
        <translation>Sie bleiben; %1 entfernt sie.</translation>
    </message>
    <message>
        <source>Nessuna song viene rimossa, perché l&apos;elenco non è completo.</source>
        <translation>Kein Song wird entfernt, weil die Liste nicht vollständig ist.</translation>
    </message>
    <message>
        <source>Rimuovere queste song dalla memoria?</source>
        <translation>Diese Songs vom Speicher entfernen?</translation>
    </message>
    <message>
        <source>Sono più song di quante il player ne può trovare: %1. Si vuole procedere comunque?</source>
        <translation>Das sind mehr Songs, als der Player finden kann: %1. Trotzdem fortfahren?</translation>
    </message>
    <message>
        <source>Non è una song e non viene copiato</source>
        <translation>Das ist kein Song und wird nicht kopiert</translation>
    </message>
</context>
<context>
    <name>TransferPlanner</name>
    <message>
        <source>il file non può essere letto</source>
        <translation>die Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>die Datei gibt es nicht mehr</translation>
    </message>
    <message>
        <source>è la stessa song, scelta due volte</source>
        <translation>ist derselbe Song, zweimal gewählt</translation>
    </message>
    <message>
        <source>per i nomi che iniziano così il player non ha più nomi brevi</source>
        <translation>für Namen, die so anfangen, hat der Player keine kurzen Namen mehr</translation>
    </message>
    <message>
        <source>nella memoria ci sono altre immagini karaoke con il suo nome</source>
        <translation>auf dem Speicher liegen andere Karaoke-Bilder mit seinem Namen</translation>
    </message>
    <message>
        <source>il percorso è troppo lungo per il player</source>
        <translation>die Namen der Ordner sind zu lang für den Player</translation>
    </message>
</context>
<context>
    <name>CopiesFromMemory</name>
    <message>
        <source>La cartella non esiste.</source>
        <translation>Den Ordner gibt es nicht.</translation>
    </message>
    <message>
        <source>La cartella è nella memoria stessa: sceglierne una del computer.</source>
        <translation>Der Ordner liegt auf dem Speicher selbst: bitte einen des Computers wählen.</translation>
    </message>
    <message>
        <source>un&apos;altra song scelta ha lo stesso nome</source>
        <translation>ein anderer gewählter Song hat denselben Namen</translation>
    </message>
</context>
<context>
    <name>Eject</name>
    <message>
        <source>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</source>
        <translation>Der Ordner ist kein angeschlossener Speicher: es gibt nichts auszuwerfen.</translation>
    </message>
    <message>
        <source>Non tutti i dati sono arrivati sulla memoria. Non scollegarla.</source>
        <translation>Nicht alles ist auf dem Speicher angekommen. Bitte nicht abziehen.</translation>
    </message>
    <message>
        <source>Adesso la memoria si può scollegare.</source>
        <translation>Der Speicher kann jetzt abgezogen werden.</translation>
    </message>
    <message>
        <source>Il servizio del sistema che espelle le memorie (UDisks2) non risponde. Espellere la memoria dal file manager.</source>
        <translation>Der Dienst des Systems, der Speicher auswirft (UDisks2), antwortet nicht. Bitte den Speicher im Dateimanager auswerfen.</translation>
    </message>
    <message>
        <source>Il sistema non conosce nessuna memoria collegata qui.</source>
        <translation>Das System kennt hier keinen angeschlossenen Speicher.</translation>
    </message>
    <message>
        <source>Il sistema non permette di espellere la memoria.</source>
        <translation>Das System erlaubt nicht, den Speicher auszuwerfen.</translation>
    </message>
    <message>
        <source>La memoria è stata smontata, ma il suo lettore è ancora in uso: altre sue partizioni possono essere aperte.</source>
        <translation>Der Speicher ist freigegeben, aber sein Laufwerk wird noch benutzt: andere Partitionen darauf können offen sein.</translation>
    </message>
    <message>
        <source>La memoria è in uso: chiudere i programmi che la usano e riprovare.</source>
        <translation>Der Speicher wird benutzt: bitte die Programme schließen, die ihn benutzen, und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>La memoria è in uso da: %1. Chiudere questi programmi e riprovare.</source>
        <translation>Der Speicher wird benutzt von: %1. Bitte diese Programme schließen und es noch einmal versuchen.</translation>
    </message>
    <message>
        <source>Non è stato possibile espellere la memoria.</source>
        <translation>Der Speicher konnte nicht ausgeworfen werden.</translation>
    </message>
</context>
<context>
    <name>RemoveCommand</name>
    <message numerus="yes">
        <source>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</source>
        <translation>
            <numerusform>%n Song wird mit seinen Karaoke-Bildern vom Speicher entfernt. Fortfahren?</numerusform>
            <numerusform>%n Songs werden mit ihren Karaoke-Bildern vom Speicher entfernt. Fortfahren?</numerusform>
        </translation>
    </message>
    <message>
        <source>La cartella è dentro una memoria: indicare la memoria, %1</source>
        <translation>Der Ordner liegt in einem Speicher: den Speicher selbst angeben, %1</translation>
    </message>
</context>
<context>
    <name>SongChanges</name>
    <message>
        <source>Eliminazione</source>
        <translation>Entfernen</translation>
    </message>
    <message>
        <source>Eliminazione song...</source>
        <translation>Songs werden entfernt...</translation>
    </message>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima</source>
        <translation>Der Speicher hat kein vollständiges Songverzeichnis: bitte zuerst aktualisieren</translation>
    </message>
    <message>
        <source>il suo ultimo salvataggio non è stato completato</source>
        <translation>das letzte Speichern wurde nicht beendet</translation>
    </message>
    <message>
        <source>non è stato possibile rinominarla</source>
        <translation>er konnte nicht umbenannt werden</translation>
    </message>
    <message>
        <source>la memoria non ha confermato il nuovo nome</source>
        <translation>der Speicher hat den neuen Namen nicht bestätigt</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Aktualisierung</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Songverzeichnis wird aktualisiert...</translation>
    </message>
    <message>
        <source>Il database della memoria è danneggiato, o la memoria non si può scrivere. Non è stato cambiato nulla.</source>
        <translation>Das Songverzeichnis des Speichers ist beschädigt, oder der Speicher kann nicht beschrieben werden. Es wurde nichts geändert.</translation>
    </message>
    <message>
        <source>Salvataggio</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Salvataggio song...</source>
        <translation>Songs werden gespeichert...</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>Der Speicher ist nicht mehr angeschlossen.</translation>
    </message>
    <message>
        <source>Il database della memoria è danneggiato: rigenerarlo.</source>
        <translation>Das Songverzeichnis des Speichers ist beschädigt: bitte neu aufbauen.</translation>
    </message>
    <message>
        <source>Nella memoria non ci sono song.</source>
        <translation>Auf dem Speicher sind keine Songs.</translation>
    </message>
    <message>
        <source>Non è stato possibile aggiornare il database. Assicurarsi che la memoria abbia spazio libero e che non sia protetta da scrittura.</source>
        <translation>Das Songverzeichnis konnte nicht aktualisiert werden. Vergewissern Sie sich, dass der Speicher genügend freien Platz hat und nicht schreibgeschützt ist.</translation>
    </message>
</context>
<context>
    <name>SongName</name>
    <message>
        <source>il nome deve finire con .%1</source>
        <translation>der Name muss auf .%1 enden</translation>
    </message>
    <message>
        <source>con la cartella il nome supera %1 caratteri</source>
        <translation>mit dem Ordner hat der Name mehr als %1 Zeichen</translation>
    </message>
    <message>
        <source>è il nome che ha già</source>
        <translation>er heißt schon so</translation>
    </message>
    <message>
        <source>un altro file ha già questo nome</source>
        <translation>eine andere Datei heißt schon so</translation>
    </message>
    <message>
        <source>ci sono già immagini karaoke con questo nome</source>
        <translation>es gibt schon Karaoke-Bilder mit diesem Namen</translation>
    </message>
    <message>
        <source>il nome è vuoto</source>
        <translation>der Name ist leer</translation>
    </message>
    <message>
        <source>il nome supera %1 caratteri</source>
        <translation>der Name hat mehr als %1 Zeichen</translation>
    </message>
    <message>
        <source>questi caratteri non sono permessi: %1</source>
        <translation>diese Zeichen sind nicht erlaubt: %1</translation>
    </message>
    <message>
        <source>il player non ha uno dei caratteri</source>
        <translation>dem Player fehlt eines der Zeichen</translation>
    </message>
    <message>
        <source>il nome non può iniziare o finire con un punto o uno spazio</source>
        <translation>der Name darf nicht mit einem Punkt oder Leerzeichen beginnen oder enden</translation>
    </message>
    <message>
        <source>questo nome è riservato dai computer</source>
        <translation>diesen Namen behalten Computer sich vor</translation>
    </message>
</context>
<context>
    <name>SongRemoval</name>
    <message>
        <source>non è una song della memoria</source>
        <translation>das ist kein Song des Speichers</translation>
    </message>
    <message>
        <source>è in una cartella riservata</source>
        <translation>er liegt in einem reservierten Ordner</translation>
    </message>
    <message>
        <source>ci porta un collegamento: potrebbe trovarsi fuori dalla memoria</source>
        <translation>eine Verknüpfung führt dorthin: er kann außerhalb des Speichers liegen</translation>
    </message>
    <message>
        <source>il file non c&apos;è</source>
        <translation>die Datei ist nicht da</translation>
    </message>
    <message>
        <source>non è stato possibile eliminarla</source>
        <translation>er konnte nicht entfernt werden</translation>
    </message>
    <message>
        <source>la song è stata eliminata, ma non le sue immagini: %1</source>
        <translation>der Song wurde entfernt, aber nicht seine Bilder: %1</translation>
    </message>
    <message>
        <source>la memoria non ha confermato l&apos;eliminazione</source>
        <translation>der Speicher hat das Entfernen nicht bestätigt</translation>
    </message>
</context>
<context>
    <name>PlannedName</name>
    <message>
        <source>un&apos;altra song del piano ha questo nome</source>
        <translation>ein anderer Song des Plans hat diesen Namen</translation>
    </message>
</context>
<context>
    <name>TransferPlanModel</name>
    <message>
        <source>Diverso per ogni song</source>
        <translation>Je nach Song verschieden</translation>
    </message>
    <message>
        <source>%1: %2</source>
        <translation>%1: %2</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Che cosa succede</source>
        <translation>Was geschieht</translation>
    </message>
    <message>
        <source>Nella memoria</source>
        <translation>Auf dem Speicher</translation>
    </message>
    <message>
        <source>Spazio</source>
        <translation>Platz</translation>
    </message>
    <message>
        <source>Niente da fare</source>
        <translation>Nichts zu tun</translation>
    </message>
    <message>
        <source>Resta</source>
        <translation>Bleibt</translation>
    </message>
    <message>
        <source>Salta</source>
        <translation>Überspringen</translation>
    </message>
    <message>
        <source>Copia</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Copia con un nome nuovo</source>
        <translation>Unter neuem Namen kopieren</translation>
    </message>
    <message>
        <source>Tieni entrambe (nome nuovo)</source>
        <translation>Beide behalten (neuer Name)</translation>
    </message>
    <message>
        <source>Sostituisci</source>
        <translation>Ersetzen</translation>
    </message>
    <message>
        <source>Copia in una sottocartella</source>
        <translation>In einen Unterordner kopieren</translation>
    </message>
    <message>
        <source>Rimuovi dalla memoria</source>
        <translation>Vom Speicher entfernen</translation>
    </message>
    <message>
        <source>Nuove</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Già presenti</source>
        <translation>Schon vorhanden</translation>
    </message>
    <message>
        <source>Presenti, ma diverse</source>
        <translation>Vorhanden, aber anders</translation>
    </message>
    <message>
        <source>Presenti con un nome accorciato</source>
        <translation>Unter gekürztem Namen vorhanden</translation>
    </message>
    <message>
        <source>Nome già usato da un&apos;altra song dell&apos;elenco</source>
        <translation>Mehrere mit demselben Namen</translation>
    </message>
    <message>
        <source>Non leggibili</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>Nome non adatto alla memoria o al player</source>
        <translation>Name für Speicher oder Player ungeeignet</translation>
    </message>
    <message>
        <source>Nella memoria, ma non nell&apos;elenco</source>
        <translation>Auf dem Speicher, aber nicht ausgewählt</translation>
    </message>
</context>
<context>
    <name>RemedyPanel</name>
    <message>
        <source>&amp;Che cosa fare:</source>
        <translation>&amp;Was tun:</translation>
    </message>
    <message>
        <source>Diverso per ogni song</source>
        <translation>Je nach Song verschieden</translation>
    </message>
    <message>
        <source>&amp;Nome:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Seleziona nell&apos;elenco le song di cui vuoi decidere.</source>
        <translation>Wählen Sie oben die Songs, über die Sie entscheiden möchten.</translation>
    </message>
    <message>
        <source>Song selezionate: %1</source>
        <translation>Ausgewählte Songs: %1</translation>
    </message>
</context>
<context>
    <name>TransferPlanDialog</name>
    <message>
        <source>Piano di trasferimento</source>
        <translation>Übertragungsplan</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>Ordner:</translation>
    </message>
    <message>
        <source>&amp;Allinea: elenca anche le song della memoria da poter rimuovere</source>
        <translation>&amp;Abgleichen: auch Songs des Speichers zeigen, die entfernt werden können</translation>
    </message>
    <message>
        <source>Elenca le song della cartella che non sono tra quelle scelte. Vengono rimosse solo quelle che spunti.</source>
        <translation>Zeigt die Songs des Ordners, die nicht unter den gewählten sind. Entfernt werden nur die, die Sie ankreuzen.</translation>
    </message>
    <message>
        <source>&amp;Rileggi e confronta ogni file copiato</source>
        <translation>Jede kopierte Datei &amp;zurücklesen und vergleichen</translation>
    </message>
    <message>
        <source>Vale anche per i prossimi trasferimenti. La copia dura di più.</source>
        <translation>Gilt auch für künftige Übertragungen. Das Kopieren dauert länger.</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Copia &amp;senza piano</source>
        <translation>&amp;Ohne Plan kopieren</translation>
    </message>
    <message>
        <source>Copia ogni song con il suo nome e chiede prima di sostituirne una.</source>
        <translation>Kopiert jeden Song unter seinem Namen und fragt, bevor einer ersetzt wird.</translation>
    </message>
    <message>
        <source>&amp;Esegui</source>
        <translation>Aus&amp;führen</translation>
    </message>
    <message>
        <source>Ecco che cosa succederebbe alle song scelte.</source>
        <translation>Das würde mit den gewählten Songs geschehen.</translation>
    </message>
    <message>
        <source>Alcune song hanno lo stesso nome: nella memoria ne resterebbe una sola.</source>
        <translation>Einige Songs haben denselben Namen: Auf dem Speicher bliebe nur einer davon.</translation>
    </message>
    <message>
        <source>Alcune song sono già nella memoria con un nome accorciato: ci sarebbero due volte.</source>
        <translation>Einige Songs sind unter einem gekürzten Namen schon auf dem Speicher: Sie wären dann doppelt da.</translation>
    </message>
    <message>
        <source>Lo spazio libero nella memoria non basta per tutte le song.</source>
        <translation>Der freie Platz auf dem Speicher reicht nicht für alle Songs.</translation>
    </message>
    <message>
        <source>Il player non può trovare così tante song.</source>
        <translation>So viele Songs kann der Player nicht finden.</translation>
    </message>
    <message>
        <source>Non è stato ancora copiato niente.</source>
        <translation>Noch wurde nichts kopiert.</translation>
    </message>
    <message>
        <source>Servono %1. Lo spazio libero non è noto.</source>
        <translation>Benötigt: %1. Wie viel Platz frei ist, ist nicht bekannt.</translation>
    </message>
    <message>
        <source>Occupati: %1 di %2. Servono: %3. Liberi: %4.</source>
        <translation>Belegt: %1 von %2. Benötigt: %3. Frei: %4.</translation>
    </message>
    <message>
        <source>Song aggiunte: %1. Sostituite: %2. Rimosse: %3. Song nella memoria dopo il trasferimento: %4.</source>
        <translation>Neue Songs: %1. Ersetzt: %2. Entfernt: %3. Songs auf dem Speicher nach der Übertragung: %4.</translation>
    </message>
    <message>
        <source>Niente da copiare né da rimuovere: «Esegui» aggiorna soltanto il database della memoria.</source>
        <translation>Nichts zu kopieren oder zu entfernen: „Ausführen“ aktualisiert nur das Songverzeichnis des Speichers.</translation>
    </message>
    <message>
        <source>Song scelte che non vengono copiate: %1</source>
        <translation>Ausgewählte Songs, die nicht kopiert werden: %1</translation>
    </message>
    <message>
        <source>La song non può avere questo nome: %1</source>
        <translation>Der Song kann nicht so heißen: %1</translation>
    </message>
    <message>
        <source>Lo spazio libero non basta: mancano %1. Decidi quali song saltare.</source>
        <translation>Der freie Platz reicht nicht: Es fehlen %1. Entscheiden Sie, welche Songs übersprungen werden.</translation>
    </message>
    <message>
        <source>Song da rimuovere dalla memoria: %1
Vengono cancellate per sempre, con le loro immagini karaoke. Rimuoverle?</source>
        <translation>Vom Speicher zu entfernende Songs: %1
Sie werden mit ihren Karaoke-Bildern endgültig gelöscht. Jetzt entfernen?</translation>
    </message>
    <message>
        <source>Troppe song per il player: %1, il massimo è %2. Decidi quali song saltare.</source>
        <translation>Zu viele Songs für den Player: %1, höchstens %2 sind möglich. Entscheiden Sie, welche übersprungen werden.</translation>
    </message>
    <message>
        <source>Nella cartella non ci sono altre song.</source>
        <translation>Im Ordner sind keine anderen Songs.</translation>
    </message>
</context>
<context>
    <name>Memories</name>
    <message>
        <source>Memoria</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Espulsione della memoria...</source>
        <translation>Speicher wird ausgeworfen...</translation>
    </message>
</context>
<context>
    <name>MemoryCare</name>
    <message>
        <source>Lettura della memoria...</source>
        <translation>Speicher wird gelesen...</translation>
    </message>
    <message>
        <source>La lettura è stata interrotta.</source>
        <translation>Das Lesen wurde angehalten.</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>Der Speicher ist nicht mehr angeschlossen.</translation>
    </message>
    <message>
        <source>Confronto dei file...</source>
        <translation>Dateien werden verglichen...</translation>
    </message>
    <message>
        <source>Il confronto è stato interrotto.</source>
        <translation>Das Vergleichen wurde angehalten.</translation>
    </message>
    <message numerus="yes">
        <source>%n gruppi di file uguali</source>
        <translation>
            <numerusform>%n Gruppe gleicher Dateien</numerusform>
            <numerusform>%n Gruppen gleicher Dateien</numerusform>
        </translation>
    </message>
    <message>
        <source>Controllo della memoria...</source>
        <translation>Speicher wird geprüft...</translation>
    </message>
    <message>
        <source>Il database è aggiornato.</source>
        <translation>Das Songverzeichnis ist aktuell.</translation>
    </message>
    <message>
        <source>Il database viene creato da capo: può durare alcuni minuti. Le playlist conservano le loro song. Procedere?</source>
        <translation>Das Songverzeichnis wird ganz neu aufgebaut, das kann einige Minuten dauern. Die Playlists behalten ihre Songs. Fortfahren?</translation>
    </message>
    <message>
        <source>Il database è stato rigenerato.</source>
        <translation>Das Songverzeichnis wurde neu aufgebaut.</translation>
    </message>
    <message>
        <source>Le song perdute tornano nelle playlist, dove l&apos;ultimo aggiornamento ha annotato quali erano. Il resto delle playlist non cambia. Procedere?</source>
        <translation>Verlorene Songs kommen wieder in die Playlists, wo die letzte Aktualisierung notiert hat, welche es waren. Sonst ändert sich in den Playlists nichts. Fortfahren?</translation>
    </message>
    <message numerus="yes">
        <source>%n playlist non si possono leggere o scrivere.</source>
        <translation>
            <numerusform>%n Playlist kann nicht gelesen oder beschrieben werden.</numerusform>
            <numerusform>%n Playlists können nicht gelesen oder beschrieben werden.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono di nuovo nelle playlist.</source>
        <translation>
            <numerusform>%n Song ist wieder in den Playlists.</numerusform>
            <numerusform>%n Songs sind wieder in den Playlists.</numerusform>
        </translation>
    </message>
    <message>
        <source>Espulsione della memoria...</source>
        <translation>Speicher wird ausgeworfen...</translation>
    </message>
    <message>
        <source>Memoria</source>
        <translation>Speicher</translation>
    </message>
    <message numerus="yes">
        <source>%n song non sono state cambiate.</source>
        <translation>
            <numerusform>%n Song wurde nicht geändert.</numerusform>
            <numerusform>%n Songs wurden nicht geändert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Il lavoro è stato interrotto: le altre song sono come prima.</source>
        <translation>Es wurde angehalten: Die übrigen Songs sind wie vorher.</translation>
    </message>
    <message>
        <source>Il database della memoria non è stato aggiornato.</source>
        <translation>Das Songverzeichnis des Speichers wurde nicht aktualisiert.</translation>
    </message>
    <message>
        <source>Il database non ha accettato tutte le song.</source>
        <translation>Nicht alle Songs konnten in das Songverzeichnis aufgenommen werden.</translation>
    </message>
    <message>
        <source>Il controllo è stato interrotto.</source>
        <translation>Die Prüfung wurde angehalten.</translation>
    </message>
</context>
<context>
    <name>MemoryCheckPage</name>
    <message numerus="yes">
        <source>e altri %n</source>
        <translation>
            <numerusform>und %n weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message>
        <source>Il controllo confronta database, playlist e file tra loro. Non cambia nulla.</source>
        <translation>Die Prüfung vergleicht Songverzeichnis, Playlists und Dateien miteinander. Sie ändert nichts.</translation>
    </message>
    <message>
        <source>La memoria è in ordine.</source>
        <translation>Der Speicher ist in Ordnung.</translation>
    </message>
    <message>
        <source>La memoria non è in ordine. Accanto a ogni punto sta che cosa aiuta.</source>
        <translation>Der Speicher ist nicht in Ordnung. Neben jedem Punkt steht, was hilft.</translation>
    </message>
    <message>
        <source>Il player non trova nessuna song: il database non è completo</source>
        <translation>Der Player findet keine Songs: Das Songverzeichnis ist nicht vollständig</translation>
    </message>
    <message>
        <source>Song che il player elenca, ma che non ci sono più</source>
        <translation>Songs, die der Player aufführt, die es aber nicht mehr gibt</translation>
    </message>
    <message>
        <source>Song modificate: il player ne mostra ancora i dati vecchi</source>
        <translation>Geänderte Songs: Der Player zeigt noch die alten Angaben</translation>
    </message>
    <message>
        <source>Song che il player non trova ancora</source>
        <translation>Songs, die der Player noch nicht findet</translation>
    </message>
    <message>
        <source>Song perdute nelle playlist</source>
        <translation>Verlorene Songs in den Playlists</translation>
    </message>
    <message>
        <source>Più song di quante il player ne conti</source>
        <translation>Mehr Songs, als der Player zählen kann</translation>
    </message>
    <message>
        <source>Il player cerca in un ordine sbagliato</source>
        <translation>Der Player sucht in einer falschen Reihenfolge</translation>
    </message>
    <message>
        <source>Il database è danneggiato</source>
        <translation>Das Songverzeichnis ist beschädigt</translation>
    </message>
    <message>
        <source>eliminare song</source>
        <translation>Songs entfernen</translation>
    </message>
    <message>
        <source>Song di cui il player mostra dati che nel file non ci sono</source>
        <translation>Songs, zu denen der Player Angaben zeigt, die nicht in der Datei stehen</translation>
    </message>
    <message>
        <source>Song che con le loro cartelle hanno un nome troppo lungo per il player</source>
        <translation>Songs, deren Name mit allen Ordnern für den Player zu lang ist</translation>
    </message>
    <message>
        <source>Cartelle che non si possono leggere</source>
        <translation>Ordner, die nicht gelesen werden können</translation>
    </message>
    <message>
        <source>Nomi con caratteri che non si possono leggere</source>
        <translation>Namen mit Zeichen, die nicht gelesen werden können</translation>
    </message>
    <message>
        <source>dare un altro nome nel file manager</source>
        <translation>im Dateimanager umbenennen</translation>
    </message>
    <message>
        <source>controllare la memoria con gli strumenti del sistema</source>
        <translation>den Speicher mit den Mitteln des Betriebssystems prüfen</translation>
    </message>
    <message>
        <source>Playlist che il player elenca, ma che non può leggere</source>
        <translation>Playlists, die der Player auflistet, aber nicht lesen kann</translation>
    </message>
    <message>
        <source>eliminare la playlist sul player</source>
        <translation>die Playlist am Player löschen</translation>
    </message>
</context>
<context>
    <name>MemoryContents</name>
    <message>
        <source>La memoria non è collegata.</source>
        <translation>Der Speicher ist nicht angeschlossen.</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>Der Speicher ist nicht mehr angeschlossen.</translation>
    </message>
    <message>
        <source>Questa cartella non è su una memoria e non ha un database: qui non si cambia nulla.</source>
        <translation>Dieser Ordner liegt auf keinem Speicher und hat kein Songverzeichnis: Hier wird nichts geändert.</translation>
    </message>
    <message>
        <source>Il database è danneggiato: rigenerarlo nella scheda &quot;Controllo&quot; prima di cambiare le song.</source>
        <translation>Das Songverzeichnis ist beschädigt: bitte auf der Seite &quot;Prüfung&quot; neu aufbauen, bevor Songs geändert werden.</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura.</source>
        <translation>Der Speicher ist schreibgeschützt.</translation>
    </message>
</context>
<context>
    <name>MemoryDuplicatesPage</name>
    <message>
        <source>Lo stesso file</source>
        <translation>Gleiche Datei</translation>
    </message>
    <message>
        <source>Stesso titolo e artista</source>
        <translation>Gleicher Titel und Interpret</translation>
    </message>
    <message>
        <source>Nessuna song è doppia.</source>
        <translation>Kein Song ist doppelt.</translation>
    </message>
    <message>
        <source>Nessuna song ha lo stesso titolo e artista di un&apos;altra.</source>
        <translation>Kein Song hat Titel und Interpret eines anderen.</translation>
    </message>
    <message>
        <source>Scegliere con la spunta le song da eliminare. Stesso titolo e artista possono essere due versioni: controllare prima.</source>
        <translation>Haken Sie die Songs an, die entfernt werden sollen. Gleicher Titel und Interpret können zwei Fassungen sein: bitte vorher prüfen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; trova anche i file uguali con nomi e titoli diversi.</source>
        <translation>&quot;%1&quot; findet auch gleiche Dateien mit anderen Namen und Titeln.</translation>
    </message>
</context>
<context>
    <name>MemoryPlaylistsPage</name>
    <message>
        <source>Nella memoria non ci sono playlist.</source>
        <translation>Auf dem Speicher sind keine Playlists.</translation>
    </message>
    <message>
        <source>Le playlist si cambiano sul player. Una song perduta è una che il player non trova più.</source>
        <translation>Playlists werden am Player geändert. Ein verlorener Song ist einer, den der Player nicht mehr findet.</translation>
    </message>
    <message>
        <source>Playlist %1 – non si può leggere</source>
        <translation>Playlist %1 – nicht lesbar</translation>
    </message>
    <message numerus="yes">
        <source>Playlist %1 – %n song</source>
        <translation>
            <numerusform>Playlist %1 – %n Song</numerusform>
            <numerusform>Playlist %1 – %n Songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n perdute</source>
        <translation>
            <numerusform>%n verloren</numerusform>
            <numerusform>%n verloren</numerusform>
        </translation>
    </message>
    <message>
        <source>(song perduta)</source>
        <translation>(verlorener Song)</translation>
    </message>
</context>
<context>
    <name>MemorySongWork</name>
    <message>
        <source>Memoria</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Di queste song non c&apos;è più il file. &quot;Aggiorna&quot; nella scheda &quot;Controllo&quot; le toglie dal database.</source>
        <translation>Von diesen Songs gibt es keine Datei mehr. &quot;Aktualisieren&quot; auf der Seite &quot;Prüfung&quot; nimmt sie aus dem Songverzeichnis.</translation>
    </message>
    <message>
        <source>Queste song sono in cartelle che non si possono leggere: controllare la memoria con gli strumenti del sistema.</source>
        <translation>Diese Songs liegen in Ordnern, die nicht gelesen werden können: bitte den Speicher mit den Mitteln des Betriebssystems prüfen.</translation>
    </message>
    <message>
        <source>un altro programma l&apos;ha cambiata: rileggere la memoria</source>
        <translation>ein anderes Programm hat ihn geändert: bitte den Speicher neu lesen</translation>
    </message>
    <message numerus="yes">
        <source>%n song eliminate dalla memoria.</source>
        <translation>
            <numerusform>%n Song wurde vom Speicher entfernt.</numerusform>
            <numerusform>%n Songs wurden vom Speicher entfernt.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>e altre %n</source>
        <translation>
            <numerusform>und %n weiterer</numerusform>
            <numerusform>und %n weitere</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Attenzione: di %n gruppi non rimane nessuna song!</source>
        <translation>
            <numerusform>Achtung: Von %n Gruppe bleibt kein Song übrig!</numerusform>
            <numerusform>Achtung: Von %n Gruppen bleibt kein Song übrig!</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</source>
        <translation>
            <numerusform>%n Song wird mit seinen Karaoke-Bildern vom Speicher entfernt. Fortfahren?</numerusform>
            <numerusform>%n Songs werden mit ihren Karaoke-Bildern vom Speicher entfernt. Fortfahren?</numerusform>
        </translation>
    </message>
    <message>
        <source>La song si chiama ora %1.</source>
        <translation>Der Song heißt jetzt %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n song salvate.</source>
        <translation>
            <numerusform>%n Song gespeichert.</numerusform>
            <numerusform>%n Songs gespeichert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Ordner auswählen</translation>
    </message>
    <message>
        <source>Copia song...</source>
        <translation>Songs werden kopiert...</translation>
    </message>
    <message numerus="yes">
        <source>%n song copiate sul computer.</source>
        <translation>
            <numerusform>%n Song auf den Computer kopiert.</numerusform>
            <numerusform>%n Songs auf den Computer kopiert.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n c&apos;erano già e restano.</source>
        <translation>
            <numerusform>%n gab es schon und bleibt.</numerusform>
            <numerusform>%n gab es schon und bleiben.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song non sono state copiate.</source>
        <translation>
            <numerusform>%n Song wurde nicht kopiert.</numerusform>
            <numerusform>%n Songs wurden nicht kopiert.</numerusform>
        </translation>
    </message>
    <message>
        <source>Non è stato possibile aprire la cartella %1.</source>
        <translation>Der Ordner %1 konnte nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>La copia è stata interrotta.</source>
        <translation>Das Kopieren wurde angehalten.</translation>
    </message>
</context>
<context>
    <name>MemorySongsModel</name>
    <message>
        <source>Titolo</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Musikrichtung</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>.cdg</source>
        <translation>.cdg</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Zustand</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Sì</source>
        <translation>Ja</translation>
    </message>
    <message>
        <source>non ancora nel database</source>
        <translation>noch nicht im Songverzeichnis</translation>
    </message>
    <message>
        <source>modificata dopo l&apos;aggiornamento</source>
        <translation>seit der Aktualisierung geändert</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>die Datei gibt es nicht mehr</translation>
    </message>
    <message>
        <source>cartella non leggibile</source>
        <translation>Ordner nicht lesbar</translation>
    </message>
    <message>
        <source>il player non legge il tag</source>
        <translation>Player liest den Tag nicht</translation>
    </message>
    <message>
        <source>doppia</source>
        <translation>doppelt</translation>
    </message>
    <message>
        <source>nel database</source>
        <translation>im Songverzeichnis</translation>
    </message>
</context>
<context>
    <name>MemorySongsPage</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n Song</numerusform>
            <numerusform>%n Songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 di %n song</source>
        <translation>
            <numerusform>%1 von %n Song</numerusform>
            <numerusform>%1 von %n Songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n scelte</source>
        <translation>
            <numerusform>%n ausgewählt</numerusform>
            <numerusform>%n ausgewählt</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MemoryWindow</name>
    <message>
        <source>Memoria</source>
        <translation>Speicher</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>S&amp;peicher:</translation>
    </message>
    <message>
        <source>Altra cartella...</source>
        <translation>Anderer Ordner...</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>&amp;Ordner:</translation>
    </message>
    <message>
        <source>Rileggi</source>
        <translation>Neu lesen</translation>
    </message>
    <message>
        <source>Spazio occupato</source>
        <translation>Belegter Platz</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Songs</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Suchen:</translation>
    </message>
    <message>
        <source>Song della memoria</source>
        <translation>Songs auf dem Speicher</translation>
    </message>
    <message>
        <source>Modifica...</source>
        <translation>Bearbeiten...</translation>
    </message>
    <message>
        <source>Rinomina...</source>
        <translation>Umbenennen...</translation>
    </message>
    <message>
        <source>Copia sul computer...</source>
        <translation>Auf den Computer kopieren...</translation>
    </message>
    <message>
        <source>Apri cartella</source>
        <translation>Ordner öffnen</translation>
    </message>
    <message>
        <source>Elimina dalla memoria...</source>
        <translation>Vom Speicher entfernen...</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlists</translation>
    </message>
    <message>
        <source>Playlist della memoria</source>
        <translation>Playlists auf dem Speicher</translation>
    </message>
    <message>
        <source>Song della playlist</source>
        <translation>Songs der Playlist</translation>
    </message>
    <message>
        <source>Doppie</source>
        <translation>Doppelte</translation>
    </message>
    <message>
        <source>Song doppie</source>
        <translation>Doppelte Songs</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Größe</translation>
    </message>
    <message>
        <source>Confronta i file</source>
        <translation>Dateien vergleichen</translation>
    </message>
    <message>
        <source>Elimina le song scelte...</source>
        <translation>Angehakte Songs entfernen...</translation>
    </message>
    <message>
        <source>Controllo</source>
        <translation>Prüfung</translation>
    </message>
    <message>
        <source>Risultato del controllo</source>
        <translation>Ergebnis der Prüfung</translation>
    </message>
    <message>
        <source>Che cosa non va</source>
        <translation>Was nicht stimmt</translation>
    </message>
    <message>
        <source>Che cosa aiuta</source>
        <translation>Was hilft</translation>
    </message>
    <message>
        <source>Controlla</source>
        <translation>Prüfen</translation>
    </message>
    <message>
        <source>Aggiorna</source>
        <translation>Aktualisieren</translation>
    </message>
    <message>
        <source>Rigenera...</source>
        <translation>Neu aufbauen...</translation>
    </message>
    <message>
        <source>Ripara le playlist...</source>
        <translation>Playlists wiederherstellen...</translation>
    </message>
    <message>
        <source>Avanzamento</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Interrompi</source>
        <translation>Anhalten</translation>
    </message>
    <message>
        <source>Espelli</source>
        <translation>Auswerfen</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</source>
        <translation>Der Ordner ist kein angeschlossener Speicher: es gibt nichts auszuwerfen.</translation>
    </message>
    <message>
        <source>Il servizio del sistema che espelle le memorie non risponde. Espellere la memoria dal file manager.</source>
        <translation>Der Dienst des Systems, der Speicher auswirft, antwortet nicht. Bitte den Speicher im Dateimanager auswerfen.</translation>
    </message>
    <message numerus="yes">
        <source>%n cartelle non leggibili</source>
        <translation>
            <numerusform>%n Ordner nicht lesbar</numerusform>
            <numerusform>%n Ordner nicht lesbar</numerusform>
        </translation>
    </message>
    <message>
        <source>Scegliere una memoria</source>
        <translation>Bitte einen Speicher auswählen</translation>
    </message>
    <message>
        <source>senza database: il player non trova nessuna song</source>
        <translation>kein Songverzeichnis: der Player findet keine Songs</translation>
    </message>
    <message>
        <source>database danneggiato, del %1</source>
        <translation>Songverzeichnis beschädigt, vom %1</translation>
    </message>
    <message>
        <source>database del %1</source>
        <translation>Songverzeichnis vom %1</translation>
    </message>
    <message numerus="yes">
        <source>di %n giorni fa</source>
        <translation>
            <numerusform>vor %n Tag</numerusform>
            <numerusform>vor %n Tagen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>mancano %n song</source>
        <translation>
            <numerusform>%n Song fehlt</numerusform>
            <numerusform>%n Songs fehlen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song modificate</source>
        <translation>
            <numerusform>%n Song geändert</numerusform>
            <numerusform>%n Songs geändert</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song senza file</source>
        <translation>
            <numerusform>%n Song ohne Datei</numerusform>
            <numerusform>%n Songs ohne Datei</numerusform>
        </translation>
    </message>
    <message>
        <source>completo</source>
        <translation>vollständig</translation>
    </message>
    <message>
        <source>%1 occupati, %2 liberi di %3</source>
        <translation>%1 belegt, %2 von %3 frei</translation>
    </message>
    <message>
        <source>Aggiorna il database</source>
        <translation>Songverzeichnis aktualisieren</translation>
    </message>
    <message>
        <source>Rigenera il database...</source>
        <translation>Songverzeichnis neu erstellen...</translation>
    </message>
</context>
<context>
    <name>PlaylistRepair</name>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima.</source>
        <translation>Der Speicher hat kein vollständiges Songverzeichnis: bitte zuerst aktualisieren.</translation>
    </message>
    <message>
        <source>Non è stato possibile leggere le playlist.</source>
        <translation>Die Playlists konnten nicht gelesen werden.</translation>
    </message>
</context>
<context>
    <name>RenameSongDialog</name>
    <message>
        <source>Rinomina song</source>
        <translation>Song umbenennen</translation>
    </message>
    <message numerus="yes">
        <source>Nuovo nome, al massimo %n caratteri:</source>
        <translation>
            <numerusform>Neuer &amp;Name, höchstens %n Zeichen:</numerusform>
            <numerusform>Neuer &amp;Name, höchstens %n Zeichen:</numerusform>
        </translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>CheckFindings</name>
    <message numerus="yes">
        <source>(e altri %n di questo tipo)</source>
        <translation>
            <numerusform>(und %n weiterer dieser Art)</numerusform>
            <numerusform>(und %n weitere dieser Art)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CommandHistory</name>
    <message>
        <source>Continuare senza cronologia? Le modifiche non potranno essere annullate.</source>
        <translation>Ohne Verlauf weitermachen? Die Änderungen können dann nicht zurückgenommen werden.</translation>
    </message>
    <message>
        <source>Le altre song non sono state modificate</source>
        <translation>Die anderen Songs wurden nicht geändert</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Sincronizzazione</source>
        <translation>Synchronisierung</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Bearbeitung</translation>
    </message>
    <message>
        <source>Modifica di più song</source>
        <translation>Bearbeiten mehrerer Songs</translation>
    </message>
    <message>
        <source>Preparazione dei tag MP3</source>
        <translation>Vorbereiten der MP3-Tags</translation>
    </message>
    <message>
        <source>Nuovi nomi</source>
        <translation>Umbenennen</translation>
    </message>
    <message>
        <source>Annullamento</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>Misura</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>La cronologia è di una versione più recente del programma.</source>
        <translation>Der Verlauf stammt von einer neueren Version des Programms.</translation>
    </message>
    <message>
        <source>La cronologia è danneggiata.</source>
        <translation>Der Verlauf ist beschädigt.</translation>
    </message>
    <message>
        <source>La cronologia non può essere scritta: il disco è pieno o guasto.</source>
        <translation>Der Verlauf kann nicht geschrieben werden: Auf der Festplatte ist kein Platz mehr, oder sie ist defekt.</translation>
    </message>
    <message>
        <source>come il lavoro l&apos;ha lasciata</source>
        <translation>wie danach</translation>
    </message>
    <message>
        <source>spostata</source>
        <translation>verschoben</translation>
    </message>
    <message>
        <source>è già come prima</source>
        <translation>schon wie vorher</translation>
    </message>
    <message>
        <source>cambiata dopo</source>
        <translation>danach geändert</translation>
    </message>
    <message>
        <source>non c&apos;è più</source>
        <translation>nicht mehr da</translation>
    </message>
    <message numerus="yes">
        <source>La cronologia è piena: %n lavori più vecchi non possono più essere annullati.</source>
        <translation>
            <numerusform>Der Verlauf ist voll: Der älteste Vorgang kann nicht mehr zurückgenommen werden.</numerusform>
            <numerusform>Der Verlauf ist voll: Die %n ältesten Vorgänge können nicht mehr zurückgenommen werden.</numerusform>
        </translation>
    </message>
    <message>
        <source>Continuare senza cronologia? Le modifiche non potranno essere annullate.</source>
        <translation>Ohne Verlauf weitermachen? Die Änderungen können dann nicht zurückgenommen werden.</translation>
    </message>
    <message>
        <source>Cronologia</source>
        <translation>Verlauf</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>La cronologia non ha il lavoro %1</source>
        <translation>Im Verlauf gibt es keinen Vorgang %1</translation>
    </message>
    <message>
        <source>Non c&apos;è niente da annullare</source>
        <translation>Es gibt nichts zurückzunehmen</translation>
    </message>
    <message>
        <source>Annullamento</source>
        <translation>Zurücknehmen</translation>
    </message>
    <message>
        <source>il lavoro non ha modificato questa song</source>
        <translation>der Vorgang hat diesen Song nicht geändert</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>Cronologia</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>&amp;Lavori che hanno modificato song:</source>
        <translation>&amp;Vorgänge, die Songs geändert haben:</translation>
    </message>
    <message>
        <source>Ora</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>Lavoro</source>
        <translation>Vorgang</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Songs</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Stand</translation>
    </message>
    <message>
        <source>Song &amp;del lavoro scelto:</source>
        <translation>Songs &amp;des gewählten Vorgangs:</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song und Feld</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Vorher</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>Nachher</translation>
    </message>
    <message>
        <source>Adesso</source>
        <translation>Jetzt</translation>
    </message>
    <message>
        <source>Annulla anche le song &amp;cambiate dopo</source>
        <translation>Auch danach &amp;geänderte Songs zurücknehmen</translation>
    </message>
    <message>
        <source>Spazio per la cr&amp;onologia:</source>
        <translation>&amp;Platz für den Verlauf:</translation>
    </message>
    <message>
        <source>Quando è pieno, i lavori più vecchi non possono più essere annullati.</source>
        <translation>Ist er voll, können die ältesten Vorgänge nicht mehr zurückgenommen werden.</translation>
    </message>
    <message>
        <source>Annulla le &amp;song scelte</source>
        <translation>Gewählte &amp;Songs zurücknehmen</translation>
    </message>
    <message>
        <source>Annulla &amp;tutto il lavoro</source>
        <translation>Gan&amp;zen Vorgang zurücknehmen</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>annullato in parte</source>
        <translation>teilweise zurückgenommen</translation>
    </message>
    <message>
        <source>annullato</source>
        <translation>zurückgenommen</translation>
    </message>
    <message>
        <source>di: %1</source>
        <translation>von: %1</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Song controllate: %1 di %2</source>
        <translation>Geprüfte Songs: %1 von %2</translation>
    </message>
</context>
<context>
    <name>HistoryUndo</name>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>die Datei ist nicht mehr da</translation>
    </message>
    <message>
        <source>è stata cambiata dopo</source>
        <translation>wurde danach geändert</translation>
    </message>
    <message>
        <source>la cronologia non la conserva più, o è danneggiata</source>
        <translation>der Verlauf enthält ihn nicht mehr oder ist beschädigt</translation>
    </message>
    <message>
        <source>il nome di prima è di un altro file</source>
        <translation>den alten Namen hat eine andere Datei</translation>
    </message>
    <message>
        <source>la cronologia non può essere scritta</source>
        <translation>der Verlauf kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>non è stato possibile rinominarla</source>
        <translation>er konnte nicht umbenannt werden</translation>
    </message>
    <message>
        <source>il disco non ha confermato il nuovo nome</source>
        <translation>die Festplatte hat den neuen Namen nicht bestätigt</translation>
    </message>
    <message>
        <source>le sue immagini karaoke non sono state rinominate</source>
        <translation>seine Karaoke-Bilder wurden nicht umbenannt</translation>
    </message>
</context>
<context>
    <name>JobUndo</name>
    <message>
        <source>il database della memoria non è aggiornato</source>
        <translation>das Songverzeichnis des Speichers ist nicht aktuell</translation>
    </message>
</context>
<context>
    <name>MemoryHistory</name>
    <message>
        <source>la cronologia non può essere scritta</source>
        <translation>der Verlauf kann nicht geschrieben werden</translation>
    </message>
</context>
<context>
    <name>SongHistory</name>
    <message>
        <source>Cronologia</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Non c&apos;è niente da annullare.</source>
        <translation>Es gibt nichts zurückzunehmen.</translation>
    </message>
    <message>
        <source>%1.

Annullare questo lavoro? Le song tornano come erano prima.</source>
        <translation>%1.

Diesen Vorgang zurücknehmen? Die Songs werden wieder, wie sie vorher waren.</translation>
    </message>
</context>
<context>
    <name>TakingBack</name>
    <message numerus="yes">
        <source>%n song sono di nuovo come prima.</source>
        <translation>
            <numerusform>%n Song ist wieder wie vorher.</numerusform>
            <numerusform>%n Songs sind wieder wie vorher.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song erano già come prima.</source>
        <translation>
            <numerusform>%n Song war schon wie vorher.</numerusform>
            <numerusform>%n Songs waren schon wie vorher.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono rimaste come sono.</source>
        <translation>
            <numerusform>%n Song blieb, wie er ist.</numerusform>
            <numerusform>%n Songs blieben, wie sie sind.</numerusform>
        </translation>
    </message>
    <message>
        <source>Interrotto: le altre song non sono state toccate.</source>
        <translation>Angehalten: Die anderen Songs wurden nicht angerührt.</translation>
    </message>
    <message>
        <source>Non c&apos;era niente da annullare.</source>
        <translation>Es gab nichts zurückzunehmen.</translation>
    </message>
    <message>
        <source>Cronologia</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Einzelheiten...</translation>
    </message>
    <message>
        <source>Le song tornano come prima...</source>
        <translation>Die Songs werden wieder wie vorher...</translation>
    </message>
    <message>
        <source>Dettagli</source>
        <translation>Einzelheiten</translation>
    </message>
    <message>
        <source>Queste &amp;song sono rimaste come sono:</source>
        <translation>Diese &amp;Songs blieben, wie sie sind:</translation>
    </message>
    <message numerus="yes">
        <source>%1 del %2, %n song</source>
        <translation>
            <numerusform>%1 vom %2, %n Song</numerusform>
            <numerusform>%1 vom %2, %n Songs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EditArguments</name>
    <message>
        <source>A %1 manca un valore</source>
        <translation>Für %1 fehlt ein Wert</translation>
    </message>
    <message>
        <source>Valore non valido per %1: %2</source>
        <translation>Ungültiger Wert für %1: %2</translation>
    </message>
</context>
<context>
    <name>EditCommand</name>
    <message>
        <source>Lettura</source>
        <translation>Lesen</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>%1: %2 accorciato a %3 caratteri: %4</source>
        <translation>%1: %2 auf %3 Zeichen gekürzt: %4</translation>
    </message>
    <message>
        <source>Nomi nuovi</source>
        <translation>Neue Namen</translation>
    </message>
</context>
<context>
    <name>EditSeveralDialog</name>
    <message>
        <source>Modifica più song</source>
        <translation>Mehrere Songs bearbeiten</translation>
    </message>
    <message>
        <source>Pass&amp;i, uno dopo l&apos;altro:</source>
        <translation>Schr&amp;itte, einer nach dem anderen:</translation>
    </message>
    <message>
        <source>A&amp;ggiungi</source>
        <translation>Hin&amp;zufügen</translation>
    </message>
    <message>
        <source>&amp;Togli</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Früher</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>Später</translation>
    </message>
    <message>
        <source>M&amp;ostra:</source>
        <translation>A&amp;nzeigen:</translation>
    </message>
    <message>
        <source>tutte le song</source>
        <translation>alle Songs</translation>
    </message>
    <message>
        <source>quelle che cambiano</source>
        <translation>die sich ändern</translation>
    </message>
    <message>
        <source>quelle non adatte</source>
        <translation>die nicht passen</translation>
    </message>
    <message>
        <source>Sp&amp;unta tutte</source>
        <translation>A&amp;lle ankreuzen</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;Keinen</translation>
    </message>
    <message>
        <source>Song con i valori di ora e di dopo</source>
        <translation>Songs mit alten und neuen Werten</translation>
    </message>
    <message>
        <source>A&amp;pplica</source>
        <translation>An&amp;wenden</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Esempio: %1: %2</source>
        <translation>Beispiel: %1: %2</translation>
    </message>
    <message>
        <source>non cambia</source>
        <translation>ändert sich nicht</translation>
    </message>
    <message numerus="yes">
        <source>%n song cambiano</source>
        <translation>
            <numerusform>1 Song ändert sich</numerusform>
            <numerusform>%n Songs ändern sich</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non sono adatte</source>
        <translation>
            <numerusform>1 passt nicht</numerusform>
            <numerusform>%n passen nicht</numerusform>
        </translation>
    </message>
    <message>
        <source>Passo %1: %2</source>
        <translation>Schritt %1: %2</translation>
    </message>
    <message>
        <source>Scrivo le song...</source>
        <translation>Songs werden geschrieben...</translation>
    </message>
</context>
<context>
    <name>EditStep</name>
    <message>
        <source>il testo supera %1 caratteri</source>
        <translation>der Text hat mehr als %1 Zeichen</translation>
    </message>
    <message>
        <source>valore non valido per %1: %2</source>
        <translation>ungültiger Wert für %1: %2</translation>
    </message>
    <message>
        <source>non è scelto nessun campo</source>
        <translation>es ist kein Feld gewählt</translation>
    </message>
    <message>
        <source>manca il testo da cercare</source>
        <translation>der gesuchte Text fehlt</translation>
    </message>
    <message>
        <source>l&apos;espressione non è valida: %1</source>
        <translation>der Ausdruck ist ungültig: %1</translation>
    </message>
    <message>
        <source>i due campi sono lo stesso</source>
        <translation>beide Felder sind dasselbe</translation>
    </message>
    <message>
        <source>il nome non corrisponde al modello</source>
        <translation>der Name passt nicht zum Muster</translation>
    </message>
    <message>
        <source>l&apos;espressione è troppo complessa</source>
        <translation>der Ausdruck ist zu aufwendig</translation>
    </message>
    <message>
        <source>l&apos;elenco non ha questo file</source>
        <translation>die Liste hat diese Datei nicht</translation>
    </message>
    <message>
        <source>l&apos;elenco ha questo file più volte, con dati diversi</source>
        <translation>die Liste hat diese Datei mehrmals, mit verschiedenen Angaben</translation>
    </message>
</context>
<context>
    <name>EditStepForm</name>
    <message>
        <source>&amp;Modello:</source>
        <translation>&amp;Muster:</translation>
    </message>
    <message>
        <source>Campi: %title %artist %genre %author %key %bpm, e senza essere presi %track (un numero) e %any (un testo). Con / il modello arriva alle cartelle.</source>
        <translation>Felder: %title %artist %genre %author %key %bpm, und weggelassen %track (eine Nummer) und %any (ein Text). Mit / reicht das Muster in die Ordner.</translation>
    </message>
    <message>
        <source>&amp;Campo:</source>
        <translation>&amp;Feld:</translation>
    </message>
    <message>
        <source>&amp;Altro campo:</source>
        <translation>Andere&amp;s Feld:</translation>
    </message>
    <message>
        <source>&amp;Valore:</source>
        <translation>Wer&amp;t:</translation>
    </message>
    <message>
        <source>Vuoto toglie il dato.</source>
        <translation>Leer nimmt die Angabe weg.</translation>
    </message>
    <message>
        <source>Ce&amp;rca:</source>
        <translation>S&amp;uchen:</translation>
    </message>
    <message>
        <source>&amp;Sostituisci con:</source>
        <translation>E&amp;rsetzen durch:</translation>
    </message>
    <message>
        <source>&amp;Espressione regolare</source>
        <translation>Re&amp;gulärer Ausdruck</translation>
    </message>
    <message>
        <source>&amp;Maiuscole e minuscole</source>
        <translation>Gr&amp;oß und Klein beachten</translation>
    </message>
    <message>
        <source>S&amp;crittura:</source>
        <translation>S&amp;chreibweise:</translation>
    </message>
    <message>
        <source>Ogni Parola Maiuscola</source>
        <translation>Jedes Wort Groß</translation>
    </message>
    <message>
        <source>TUTTO MAIUSCOLO</source>
        <translation>ALLES GROSS</translation>
    </message>
    <message>
        <source>tutto minuscolo</source>
        <translation>alles klein</translation>
    </message>
    <message>
        <source>Solo la prima lettera</source>
        <translation>Nur der erste Buchstabe groß</translation>
    </message>
    <message>
        <source>&amp;Lingua:</source>
        <translation>S&amp;prache:</translation>
    </message>
    <message>
        <source>&quot;_&quot; diventa uno spa&amp;zio</source>
        <translation>Aus &quot;_&quot; wi&amp;rd ein Leerzeichen</translation>
    </message>
    <message>
        <source>Campi:</source>
        <translation>Felder:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Musikrichtung</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autor</translation>
    </message>
    <message>
        <source>E&amp;lenco:</source>
        <translation>Li&amp;ste:</translation>
    </message>
    <message>
        <source>Un file CSV: la nostra lista delle song, o quello che scrive un foglio di calcolo. La prima riga dà i nomi alle colonne.</source>
        <translation>Eine CSV-Datei: unsere Songliste oder was eine Tabellenkalkulation schreibt. Die erste Zeile nennt die Spalten.</translation>
    </message>
    <message>
        <source>S&amp;foglia...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>non è scelto nessun elenco</source>
        <translation>keine Liste gewählt</translation>
    </message>
    <message>
        <source>Dal nome del file</source>
        <translation>Aus dem Dateinamen</translation>
    </message>
    <message>
        <source>Un valore per tutte</source>
        <translation>Ein Wert für alle</translation>
    </message>
    <message>
        <source>Cerca e sostituisci</source>
        <translation>Suchen und ersetzen</translation>
    </message>
    <message>
        <source>Maiuscole e minuscole</source>
        <translation>Groß- und Kleinschreibung</translation>
    </message>
    <message>
        <source>Togli spazi e &quot;_&quot;</source>
        <translation>Leerzeichen und &quot;_&quot; entfernen</translation>
    </message>
    <message>
        <source>Scambia due campi</source>
        <translation>Zwei Felder tauschen</translation>
    </message>
    <message>
        <source>Da un elenco CSV</source>
        <translation>Aus einer CSV-Liste</translation>
    </message>
    <message>
        <source>Scegli l&apos;elenco</source>
        <translation>Liste wählen</translation>
    </message>
    <message>
        <source>Elenchi (*.csv *.txt *.tsv)</source>
        <translation>Listen (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>Tutti i file (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
</context>
<context>
    <name>NamePattern</name>
    <message>
        <source>il modello è vuoto</source>
        <translation>das Muster ist leer</translation>
    </message>
    <message>
        <source>il modello supera %1 caratteri</source>
        <translation>das Muster hat mehr als %1 Zeichen</translation>
    </message>
    <message>
        <source>questo campo non c&apos;è: %1</source>
        <translation>dieses Feld gibt es nicht: %1</translation>
    </message>
    <message>
        <source>qui questo campo non vale: %1</source>
        <translation>hier gilt dieses Feld nicht: %1</translation>
    </message>
    <message>
        <source>tra due campi ci vuole un testo</source>
        <translation>zwischen zwei Feldern muss ein Text stehen</translation>
    </message>
    <message>
        <source>il campo c&apos;è due volte: %1</source>
        <translation>das Feld steht zweimal da: %1</translation>
    </message>
    <message>
        <source>manca un campo, per esempio %1</source>
        <translation>ein Feld fehlt, zum Beispiel %1</translation>
    </message>
    <message>
        <source>un nome non può contenere &quot;/&quot;</source>
        <translation>ein Name kann kein &quot;/&quot; enthalten</translation>
    </message>
</context>
<context>
    <name>SeveralEditor</name>
    <message>
        <source>È stata cambiata dopo l&apos;anteprima</source>
        <translation>Der Song wurde nach der Vorschau geändert</translation>
    </message>
    <message>
        <source>Questo file non può contenere i dati mostrati</source>
        <translation>Diese Datei kann die gezeigten Angaben nicht enthalten</translation>
    </message>
</context>
<context>
    <name>SeveralRenamer</name>
    <message>
        <source>Un altro file ha già il nome nuovo</source>
        <translation>Eine andere Datei hat schon den neuen Namen</translation>
    </message>
    <message>
        <source>Il suo ultimo salvataggio non è finito</source>
        <translation>Das letzte Speichern des Songs ist nicht fertig</translation>
    </message>
    <message>
        <source>Il file non può essere rinominato</source>
        <translation>Die Datei kann nicht umbenannt werden</translation>
    </message>
    <message>
        <source>Il disco non ha confermato il nome nuovo</source>
        <translation>Das Laufwerk hat den neuen Namen nicht bestätigt</translation>
    </message>
</context>
<context>
    <name>SeveralRenames</name>
    <message>
        <source>alla song manca un dato del modello</source>
        <translation>dem Song fehlt eine Angabe aus dem Muster</translation>
    </message>
    <message>
        <source>è in una memoria: si rinomina nella finestra della memoria</source>
        <translation>liegt auf einem Speicher: wird im Fenster des Speichers umbenannt</translation>
    </message>
    <message>
        <source>il nome sarebbe vuoto</source>
        <translation>der Name wäre leer</translation>
    </message>
    <message>
        <source>non c&apos;è un nome libero</source>
        <translation>es ist kein Name frei</translation>
    </message>
    <message>
        <source>qui il nome cambierebbe solo nelle maiuscole</source>
        <translation>hier würde sich nur Groß und Klein ändern</translation>
    </message>
    <message>
        <source>il player non ha uno dei caratteri</source>
        <translation>eines der Zeichen fehlt dem Player</translation>
    </message>
</context>
<context>
    <name>SeveralSongsModel</name>
    <message>
        <source>cambia</source>
        <translation>ändert sich</translation>
    </message>
    <message>
        <source>%1 accorciato</source>
        <translation>%1 gekürzt</translation>
    </message>
    <message>
        <source>&quot;?&quot; al posto di: %1</source>
        <translation>&quot;?&quot; anstelle von: %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>%1 dopo</source>
        <translation>%1 neu</translation>
    </message>
    <message>
        <source>%1 ora</source>
        <translation>%1 jetzt</translation>
    </message>
</context>
<context>
    <name>CsvList</name>
    <message>
        <source>l&apos;elenco è troppo grande</source>
        <translation>die Liste ist zu groß</translation>
    </message>
    <message>
        <source>l&apos;elenco è troppo grande o danneggiato</source>
        <translation>die Liste ist zu groß oder beschädigt</translation>
    </message>
    <message>
        <source>l&apos;elenco non è leggibile</source>
        <translation>die Liste ist nicht lesbar</translation>
    </message>
    <message>
        <source>l&apos;elenco è vuoto</source>
        <translation>die Liste ist leer</translation>
    </message>
    <message>
        <source>all&apos;elenco manca la colonna con i nomi dei file</source>
        <translation>der Liste fehlt die Spalte mit den Dateinamen</translation>
    </message>
    <message>
        <source>l&apos;elenco non ha colonne con dati di song</source>
        <translation>die Liste hat keine Spalten mit Angaben zu Songs</translation>
    </message>
</context>
<context>
    <name>RenameSeveralDialog</name>
    <message>
        <source>Rinomina i file</source>
        <translation>Dateien umbenennen</translation>
    </message>
    <message>
        <source>&amp;Modello:</source>
        <translation>&amp;Muster:</translation>
    </message>
    <message>
        <source>Campi: %title %artist %genre %author %key %bpm e %name, il nome di ora.</source>
        <translation>Felder: %title %artist %genre %author %key %bpm und %name, der jetzige Name.</translation>
    </message>
    <message>
        <source>Solo nomi che il player può mo&amp;strare, di otto caratteri</source>
        <translation>Nur Namen, die der Player &amp;zeigen kann, mit acht Zeichen</translation>
    </message>
    <message>
        <source>File con i nomi di ora e di dopo</source>
        <translation>Dateien mit alten und neuen Namen</translation>
    </message>
    <message>
        <source>Nome di ora</source>
        <translation>Jetziger Name</translation>
    </message>
    <message>
        <source>Nome nuovo</source>
        <translation>Neuer Name</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>&amp;Rinomina</source>
        <translation>&amp;Umbenennen</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message numerus="yes">
        <source>%n file cambiano nome</source>
        <translation>
            <numerusform>1 Datei bekommt einen neuen Namen</numerusform>
            <numerusform>%n Dateien bekommen neue Namen</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non sono adatti</source>
        <translation>
            <numerusform>1 passt nicht</numerusform>
            <numerusform>%n passen nicht</numerusform>
        </translation>
    </message>
    <message>
        <source>Modello: %1</source>
        <translation>Muster: %1</translation>
    </message>
    <message>
        <source>non cambia</source>
        <translation>ändert sich nicht</translation>
    </message>
    <message>
        <source>Esempio: %1: %2</source>
        <translation>Beispiel: %1: %2</translation>
    </message>
    <message>
        <source>Rinomino i file...</source>
        <translation>Dateien werden umbenannt...</translation>
    </message>
    <message>
        <source>Questi &amp;file non sono a posto:</source>
        <translation>Diese &amp;Dateien sind nicht in Ordnung:</translation>
    </message>
</context>
<context>
    <name>Tags</name>
    <message>
        <source>un&apos;altra codifica dei caratteri</source>
        <translation>eine andere Zeichenkodierung</translation>
    </message>
    <message>
        <source>un&apos;altra versione di ID3</source>
        <translation>eine andere Version von ID3</translation>
    </message>
    <message>
        <source>byte aggiunti fra gli altri</source>
        <translation>zusätzliche Bytes zwischen den anderen</translation>
    </message>
    <message>
        <source>solo ID3v1, alla fine del file</source>
        <translation>nur ID3v1, am Ende der Datei</translation>
    </message>
    <message>
        <source>solo APE, alla fine del file</source>
        <translation>nur APE, am Ende der Datei</translation>
    </message>
    <message>
        <source>Il player non può mostrare i testi del tag MP3: %1</source>
        <translation>Der Player kann die Texte des MP3-Tags nicht zeigen: %1</translation>
    </message>
    <message>
        <source>Il tag è danneggiato, non può essere scritto.</source>
        <translation>Das Tag ist beschädigt, es kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>La nuova versione del tag non può contenere questi dati, che vanno persi: %1</source>
        <translation>Die neue Version des Tags kann diese Teile nicht enthalten, sie gehen verloren: %1</translation>
    </message>
    <message>
        <source>Il tag resta di versione 2.4, che contiene dati sconosciuti alla 2.3; il player ne legge i testi.</source>
        <translation>Das Tag bleibt eines der Version 2.4, weil es Teile enthält, die 2.3 nicht kennt; der Player liest seine Texte.</translation>
    </message>
    <message>
        <source>Questi testi del tag non si possono leggere e restano come sono: %1</source>
        <translation>Diese Texte des Tags sind nicht lesbar und bleiben, wie sie sind: %1</translation>
    </message>
</context>
<context>
    <name>TagsCommand</name>
    <message>
        <source>Tag MP3</source>
        <translation>MP3-Tags</translation>
    </message>
</context>
<context>
    <name>TagPreparing</name>
    <message>
        <source>Tag MP3</source>
        <translation>MP3-Tags</translation>
    </message>
    <message>
        <source>Il player può mostrare i testi di tutti i file MP3 della lista.</source>
        <translation>Der Player kann die Texte aller MP3-Dateien der Liste zeigen.</translation>
    </message>
    <message>
        <source>%1.

Preparare prima il tag per il player?</source>
        <translation>%1.

Soll das Tag zuerst für den Player vorbereitet werden?</translation>
    </message>
    <message>
        <source>&amp;Prepara...</source>
        <translation>&amp;Vorbereiten...</translation>
    </message>
    <message>
        <source>&amp;Modifica così com&apos;è</source>
        <translation>&amp;So bearbeiten, wie er ist</translation>
    </message>
    <message>
        <source>Leggo i tag...</source>
        <translation>Tags werden gelesen...</translation>
    </message>
</context>
<context>
    <name>PrepareTagsDialog</name>
    <message>
        <source>Prepara i tag MP3</source>
        <translation>MP3-Tags vorbereiten</translation>
    </message>
    <message>
        <source>Il player legge solo tag ID3v2.3 con i caratteri dell&apos;Europa occidentale. Qui si vede che cosa mostra adesso di queste song e che cosa mostrerà dopo; con un doppio clic i nuovi testi si possono modificare. Il resto dei file non cambia.</source>
        <translation>Der Player liest nur ID3v2.3-Tags mit westeuropäischen Zeichen. Hier sehen Sie, was er von diesen Songs jetzt zeigt und was er danach zeigt; mit einem Doppelklick können Sie die neuen Texte ändern. Sonst ändert sich nichts in den Dateien.</translation>
    </message>
    <message>
        <source>&amp;Song con tag da preparare:</source>
        <translation>&amp;Songs mit Tags, die vorzubereiten sind:</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song und Angabe</translation>
    </message>
    <message>
        <source>Il player mostra</source>
        <translation>Der Player zeigt</translation>
    </message>
    <message>
        <source>Nel tag</source>
        <translation>Im Tag</translation>
    </message>
    <message>
        <source>Il player mostrerà</source>
        <translation>Der Player zeigt danach</translation>
    </message>
    <message>
        <source>&amp;Tutte le song</source>
        <translation>&amp;Alle Songs</translation>
    </message>
    <message>
        <source>&amp;Applica</source>
        <translation>An&amp;wenden</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Song scelte: %1 di %2</source>
        <translation>Ausgewählte Songs: %1 von %2</translation>
    </message>
    <message>
        <source>Scrivo i tag...</source>
        <translation>Tags werden geschrieben...</translation>
    </message>
    <message numerus="yes">
        <source>Tag scritti: %n.</source>
        <translation>
            <numerusform>Geschriebene Tags: %n.</numerusform>
            <numerusform>Geschriebene Tags: %n.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono rimaste come sono.</source>
        <translation>
            <numerusform>%n Song ist geblieben, wie er ist.</numerusform>
            <numerusform>%n Songs sind geblieben, wie sie sind.</numerusform>
        </translation>
    </message>
    <message>
        <source>Interrotto: le altre song non sono state toccate.</source>
        <translation>Angehalten: Die anderen Songs wurden nicht angerührt.</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Einzelheiten...</translation>
    </message>
    <message>
        <source>&amp;Song rimaste come sono:</source>
        <translation>&amp;Songs, die geblieben sind, wie sie sind:</translation>
    </message>
</context>
<context>
    <name>SongLists</name>
    <message>
        <source>Queste song sono già nella lista</source>
        <translation>Diese Songs stehen schon in der Liste</translation>
    </message>
    <message>
        <source>Song aggiunte alla lista: %1</source>
        <translation>Zur Liste hinzugefügte Songs: %1</translation>
    </message>
    <message>
        <source>Apri lista</source>
        <translation>Liste öffnen</translation>
    </message>
    <message>
        <source>La lista non contiene song</source>
        <translation>Die Liste enthält keine Songs</translation>
    </message>
    <message>
        <source>Non è il percorso di un file</source>
        <translation>Führt zu keiner Datei</translation>
    </message>
    <message>
        <source>La lista è troppo lunga: solo le prime %1 song sono state lette.</source>
        <translation>Die Liste ist zu lang: Nur ihre ersten Songs (%1) wurden gelesen.</translation>
    </message>
    <message>
        <source>La lista è vuota</source>
        <translation>Die Liste ist leer</translation>
    </message>
    <message>
        <source>Lista con percorsi relativi (*.m3u8)</source>
        <translation>Liste, die mit den Songs verschoben werden kann (*.m3u8)</translation>
    </message>
    <message>
        <source>Lista con percorsi assoluti (*.m3u8)</source>
        <translation>Liste, die allein verschoben werden kann (*.m3u8)</translation>
    </message>
    <message>
        <source>Salva lista</source>
        <translation>Liste speichern</translation>
    </message>
    <message>
        <source>Song salvate nella lista: %1</source>
        <translation>In der Liste gespeicherte Songs: %1</translation>
    </message>
    <message>
        <source>Aggiungi %1</source>
        <translation>%1 hinzufügen</translation>
    </message>
    <message>
        <source>Nessuna lista</source>
        <translation>Keine Liste</translation>
    </message>
</context>
<context>
    <name>UserFile</name>
    <message>
        <source>Il file è troppo grande</source>
        <translation>Die Datei ist zu groß</translation>
    </message>
    <message>
        <source>Il file non può essere letto</source>
        <translation>Die Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Il file è una song e non viene sostituito</source>
        <translation>Die Datei ist ein Song und wird nicht ersetzt</translation>
    </message>
    <message>
        <source>Non c&apos;è abbastanza spazio</source>
        <translation>Es ist nicht genug Platz</translation>
    </message>
    <message>
        <source>Nella cartella non si può scrivere</source>
        <translation>In den Ordner kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>La cartella non esiste</source>
        <translation>Der Ordner ist nicht vorhanden</translation>
    </message>
    <message>
        <source>Il file non può essere scritto</source>
        <translation>Die Datei kann nicht geschrieben werden</translation>
    </message>
    <message>
        <source>Il file è di un altro tipo e non viene sostituito</source>
        <translation>Die Datei ist von anderer Art und wird nicht ersetzt</translation>
    </message>
</context>
<context>
    <name>OwnCatalogue</name>
    <message>
        <source>Il mio catalogo è di una versione più recente del programma.</source>
        <translation>Mein Katalog stammt von einer neueren Version des Programms.</translation>
    </message>
    <message>
        <source>Il mio catalogo è danneggiato, o non è un catalogo di questo programma.</source>
        <translation>Mein Katalog ist beschädigt oder kein Katalog dieses Programms.</translation>
    </message>
    <message>
        <source>Il mio catalogo non può essere letto.</source>
        <translation>Mein Katalog kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Il mio catalogo non può essere scritto.</source>
        <translation>Mein Katalog kann nicht geschrieben werden.</translation>
    </message>
    <message>
        <source>Il mio catalogo è in uso da un altro programma.</source>
        <translation>Mein Katalog wird gerade von einem anderen Programm benutzt.</translation>
    </message>
</context>
<context>
    <name>CatalogueTsv</name>
    <message>
        <source>riga %1: %2</source>
        <translation>Zeile %1: %2</translation>
    </message>
    <message>
        <source>non è testo</source>
        <translation>ist kein Text</translation>
    </message>
    <message>
        <source>mancano delle colonne</source>
        <translation>Spalten fehlen</translation>
    </message>
    <message>
        <source>durata e tempo devono essere numeri</source>
        <translation>Dauer und Tempo müssen Zahlen sein</translation>
    </message>
    <message>
        <source>mancano il titolo o il nome del file, o un testo è troppo lungo</source>
        <translation>Titel oder Dateiname fehlen, oder ein Text ist zu lang</translation>
    </message>
    <message>
        <source>ci sono troppe voci</source>
        <translation>es sind zu viele Einträge</translation>
    </message>
    <message>
        <source>la durata va fino a 5999 secondi, il tempo fino a 999</source>
        <translation>die Dauer geht bis 5999 Sekunden, das Tempo bis 999</translation>
    </message>
    <message>
        <source>la tonalità non esiste</source>
        <translation>diese Tonart gibt es nicht</translation>
    </message>
    <message>
        <source>i marker non sono scritti nella forma battuta;testo;</source>
        <translation>die Abschnitte sind nicht in der Form Takt;Text; geschrieben</translation>
    </message>
</context>
<context>
    <name>SongEntries</name>
    <message>
        <source>Senza titolo o nome non può stare nel catalogo</source>
        <translation>Ohne Titel oder Namen kann der Song nicht im Katalog stehen</translation>
    </message>
    <message>
        <source>Un&apos;altra song ha lo stesso nome</source>
        <translation>Ein anderer Song hat denselben Namen</translation>
    </message>
</context>
<context>
    <name>OwnCatalogueMenu</name>
    <message>
        <source>%1 è nel mio catalogo</source>
        <translation>%1 steht in meinem Katalog</translation>
    </message>
    <message numerus="yes">
        <source>%n song sono nel mio catalogo</source>
        <translation>
            <numerusform>%n Song ist in meinem Katalog</numerusform>
            <numerusform>%n Songs sind in meinem Katalog</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongSync</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>Mein Katalog</translation>
    </message>
    <message>
        <source>Continuare con il solo catalogo del programma?</source>
        <translation>Nur mit dem Katalog des Programms fortfahren?</translation>
    </message>
</context>
<context>
    <name>CatalogueAdding</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>Mein Katalog</translation>
    </message>
    <message>
        <source>Leggo le song...</source>
        <translation>Songs werden gelesen...</translation>
    </message>
    <message>
        <source>Il file non contiene voci.</source>
        <translation>Die Datei enthält keine Einträge.</translation>
    </message>
    <message numerus="yes">
        <source>%n voci sono già nel catalogo. Sostituirle?</source>
        <translation>
            <numerusform>Ein Eintrag steht schon im Katalog. Ersetzen?</numerusform>
            <numerusform>%n Einträge stehen schon im Katalog. Ersetzen?</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Non aggiunto al catalogo:</source>
        <translation>&amp;Nicht in den Katalog aufgenommen:</translation>
    </message>
</context>
<context>
    <name>CatalogueEntryDialog</name>
    <message>
        <source>Voce del mio catalogo</source>
        <translation>Eintrag meines Katalogs</translation>
    </message>
    <message>
        <source>T&amp;itolo:</source>
        <translation>&amp;Titel:</translation>
    </message>
    <message>
        <source>In&amp;terprete:</source>
        <translation>&amp;Interpret:</translation>
    </message>
    <message>
        <source>Interprete, c&amp;ognome prima:</source>
        <translation>Interpret, Nachna&amp;me zuerst:</translation>
    </message>
    <message>
        <source>&amp;Genere:</source>
        <translation>Musik&amp;richtung:</translation>
    </message>
    <message>
        <source>&amp;Autore:</source>
        <translation>&amp;Autor:</translation>
    </message>
    <message>
        <source>&amp;Durata:</source>
        <translation>&amp;Dauer:</translation>
    </message>
    <message>
        <source>&amp;BPM:</source>
        <translation>T&amp;empo (BPM):</translation>
    </message>
    <message>
        <source>Tona&amp;lità:</source>
        <translation>T&amp;onart:</translation>
    </message>
    <message>
        <source>Nome del &amp;file:</source>
        <translation>Datei&amp;name:</translation>
    </message>
    <message>
        <source>&amp;Marker:</source>
        <translation>A&amp;bschnitte:</translation>
    </message>
    <message>
        <source>&amp;Salva</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Manca il titolo.</source>
        <translation>Der Titel fehlt.</translation>
    </message>
    <message>
        <source>Manca il nome del file.</source>
        <translation>Der Dateiname fehlt.</translation>
    </message>
    <message>
        <source>La durata si scrive in minuti e secondi, per esempio 3:05.</source>
        <translation>Die Dauer wird in Minuten und Sekunden geschrieben, zum Beispiel 3:05.</translation>
    </message>
    <message>
        <source>Ogni riga dei marker ha una misura e un testo, per esempio: 9 Verse1</source>
        <translation>Jede Zeile der Abschnitte hat einen Takt und einen Text, zum Beispiel: 9 Verse1</translation>
    </message>
    <message>
        <source>Un testo è troppo lungo.</source>
        <translation>Ein Text ist zu lang.</translation>
    </message>
    <message>
        <source>Il tempo è un numero, per esempio 120.</source>
        <translation>Das Tempo ist eine Zahl, zum Beispiel 120.</translation>
    </message>
    <message>
        <source>La tonalità non esiste.</source>
        <translation>Diese Tonart gibt es nicht.</translation>
    </message>
</context>
<context>
    <name>CatalogueDialog</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>Mein Katalog</translation>
    </message>
    <message>
        <source>La sincronizzazione cerca le song prima in queste voci e poi nel catalogo del programma.</source>
        <translation>Beim Synchronisieren wird zuerst in diesen Einträgen gesucht und dann im Katalog des Programms.</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>Su&amp;chen:</translation>
    </message>
    <message>
        <source>Voci del mio catalogo</source>
        <translation>Einträge meines Katalogs</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titel</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Interpret</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Musikrichtung</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Dauer</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Tonart</translation>
    </message>
    <message>
        <source>Nome del file</source>
        <translation>Dateiname</translation>
    </message>
    <message>
        <source>Aggiungi le song della &amp;lista</source>
        <translation>Songs der &amp;Liste hinzufügen</translation>
    </message>
    <message>
        <source>&amp;Importa...</source>
        <translation>E&amp;inlesen...</translation>
    </message>
    <message>
        <source>Es&amp;porta...</source>
        <translation>Als &amp;Tabelle speichern...</translation>
    </message>
    <message>
        <source>&amp;Modifica...</source>
        <translation>&amp;Bearbeiten...</translation>
    </message>
    <message>
        <source>&amp;Elimina</source>
        <translation>Lösc&amp;hen</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Voci: %1 di %2</source>
        <translation>Einträge: %1 von %2</translation>
    </message>
    <message>
        <source>C&apos;è già una voce con questo nome del file. Sostituirla?</source>
        <translation>Es gibt schon einen Eintrag mit diesem Dateinamen. Ersetzen?</translation>
    </message>
    <message numerus="yes">
        <source>Eliminare %n voci dal catalogo? Le song restano come sono.</source>
        <translation>
            <numerusform>Einen Eintrag aus dem Katalog löschen? Die Songs bleiben, wie sie sind.</numerusform>
            <numerusform>%n Einträge aus dem Katalog löschen? Die Songs bleiben, wie sie sind.</numerusform>
        </translation>
    </message>
    <message>
        <source>Importa voci</source>
        <translation>Einträge einlesen</translation>
    </message>
    <message>
        <source>Esporta voci</source>
        <translation>Einträge als Tabelle speichern</translation>
    </message>
</context>
<context>
    <name>MeasureCommand</name>
    <message>
        <source>Misura</source>
        <translation>Messe</translation>
    </message>
</context>
<context>
    <name>ColumnChoice</name>
    <message>
        <source>Come all&apos;inizio</source>
        <translation>Wie am Anfang</translation>
    </message>
</context>
<context>
    <name>ListOutput</name>
    <message>
        <source>Lista delle song</source>
        <translation>Songliste</translation>
    </message>
    <message>
        <source>Stampa lista</source>
        <translation>Liste drucken</translation>
    </message>
    <message numerus="yes">
        <source>Lista delle song: %n song</source>
        <translation>
            <numerusform>Songliste: %n Song</numerusform>
            <numerusform>Songliste: %n Songs</numerusform>
        </translation>
    </message>
    <message>
        <source>La lista non può essere stampata</source>
        <translation>Die Liste kann nicht gedruckt werden</translation>
    </message>
    <message>
        <source>Song copiate negli appunti: %1</source>
        <translation>Songs in die Zwischenablage kopiert: %1</translation>
    </message>
    <message>
        <source>Lista salvata in %1</source>
        <translation>Liste gespeichert: %1</translation>
    </message>
    <message>
        <source>La lista è alla stampante</source>
        <translation>Die Liste ist beim Drucker</translation>
    </message>
</context>
<context>
    <name>TablePages</name>
    <message>
        <source>Pagina %1 di %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
</context>
<context>
    <name>JobPace</name>
    <message>
        <source>Song al secondo: %1</source>
        <translation>Songs pro Sekunde: %1</translation>
    </message>
    <message>
        <source>Song al minuto: %1</source>
        <translation>Songs pro Minute: %1</translation>
    </message>
    <message numerus="yes">
        <source>ancora %n secondi circa</source>
        <translation>
            <numerusform>noch etwa %n Sekunde</numerusform>
            <numerusform>noch etwa %n Sekunden</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>ancora %n minuti circa</source>
        <translation>
            <numerusform>noch etwa %n Minute</numerusform>
            <numerusform>noch etwa %n Minuten</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>ancora %n ore circa</source>
        <translation>
            <numerusform>noch etwa %n Stunde</numerusform>
            <numerusform>noch etwa %n Stunden</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BackgroundJob</name>
    <message>
        <source>Memoria</source>
        <translation>Speicher</translation>
    </message>
</context>
<context>
    <name>JobNotice</name>
    <message>
        <source>Il lavoro è finito</source>
        <translation>Der Vorgang ist beendet</translation>
    </message>
    <message>
        <source>Il programma aspetta una risposta</source>
        <translation>Das Programm wartet auf eine Antwort</translation>
    </message>
</context>
<context>
    <name>FillFromMusicDialog</name>
    <message>
        <source>Completa dalla musica</source>
        <translation>Aus der Musik ergänzen</translation>
    </message>
    <message>
        <source>Durata, BPM, tonalità e marker come risultano dalla musica, accanto a ciò che le song dicono ora; per gli MP3 solo la durata. Si scrive ciò che è spuntato: un valore che c&apos;è già e una tonalità stimata lo sono solo se lo vuoi.</source>
        <translation>Dauer, BPM, Tonart und Abschnitte, wie sie sich aus der Musik ergeben, neben den jetzigen Angaben der Songs; bei MP3s nur die Dauer. Geschrieben wird, was angekreuzt ist: vorhandene Angaben und geschätzte Tonarten sind es nur, wenn Sie es wollen.</translation>
    </message>
    <message>
        <source>Anche le &amp;song a cui non manca nulla</source>
        <translation>Auch &amp;Songs, denen nichts fehlt</translation>
    </message>
    <message>
        <source>Anche le &amp;tonalità stimate</source>
        <translation>Auch geschätzte &amp;Tonarten</translation>
    </message>
    <message>
        <source>Sp&amp;unta tutte</source>
        <translation>A&amp;lle ankreuzen</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;Keinen</translation>
    </message>
    <message>
        <source>Song con i valori di ora e quelli della musica</source>
        <translation>Songs mit den Angaben von jetzt und denen der Musik</translation>
    </message>
    <message>
        <source>A&amp;pplica</source>
        <translation>An&amp;wenden</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>Misuro le song...</source>
        <translation>Songs werden gemessen...</translation>
    </message>
    <message>
        <source>Scrivo le song...</source>
        <translation>Songs werden geschrieben...</translation>
    </message>
    <message>
        <source>A nessuna song manca un valore che la musica può dare</source>
        <translation>Keinem Song fehlt etwas, das die Musik sagen kann</translation>
    </message>
    <message numerus="yes">
        <source>%n song cambiano</source>
        <translation>
            <numerusform>1 Song ändert sich</numerusform>
            <numerusform>%n Songs ändern sich</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non misurabili per intero</source>
        <translation>
            <numerusform>1 nicht ganz messbar</numerusform>
            <numerusform>%n nicht ganz messbar</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>interrotto: %n non misurate</source>
        <translation>
            <numerusform>angehalten: 1 nicht gemessen</numerusform>
            <numerusform>angehalten: %n nicht gemessen</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MusicOffer</name>
    <message>
        <source>Troppi marker: gli ultimi mancano</source>
        <translation>Zu viele Abschnitte: die letzten fehlen</translation>
    </message>
</context>
<context>
    <name>MusicOffersModel</name>
    <message>
        <source>non misurabile</source>
        <translation>nicht messbar</translation>
    </message>
    <message>
        <source>%1 (stimata)</source>
        <translation>%1 (geschätzt)</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Hinweis</translation>
    </message>
    <message>
        <source>%1 dopo</source>
        <translation>%1 neu</translation>
    </message>
    <message>
        <source>%1 ora</source>
        <translation>%1 jetzt</translation>
    </message>
</context>
<context>
    <name>RenderCommand</name>
    <message>
        <source>Il file esiste già. Sostituirlo?</source>
        <translation>Die Datei ist schon vorhanden. Ersetzen?</translation>
    </message>
</context>
<context>
    <name>SoundProblem</name>
    <message>
        <source>Questa versione del programma è senza suono</source>
        <translation>Diese Ausgabe des Programms ist ohne Ton</translation>
    </message>
    <message>
        <source>La parte del programma che suona le song non è installata</source>
        <translation>Der Teil des Programms, der Songs abspielt, ist nicht installiert</translation>
    </message>
    <message>
        <source>Manca un sound font per suonare le song MIDI (per esempio il pacchetto timgm6mb-soundfont)</source>
        <translation>Für MIDI-Songs fehlt ein Soundfont (zum Beispiel das Paket timgm6mb-soundfont)</translation>
    </message>
    <message>
        <source>Il sound font non può essere letto</source>
        <translation>Der Soundfont kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Non c&apos;è un dispositivo audio</source>
        <translation>Es gibt kein Audiogerät</translation>
    </message>
    <message>
        <source>Il dispositivo audio non risponde</source>
        <translation>Das Audiogerät antwortet nicht</translation>
    </message>
    <message>
        <source>Il file non può essere letto</source>
        <translation>Die Datei kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Un altro programma sta salvando la song</source>
        <translation>Ein anderes Programm speichert den Song gerade</translation>
    </message>
    <message>
        <source>Il file non è una song</source>
        <translation>Die Datei ist kein Song</translation>
    </message>
    <message>
        <source>La song è danneggiata</source>
        <translation>Der Song ist beschädigt</translation>
    </message>
    <message>
        <source>La song è troppo grande per essere suonata</source>
        <translation>Der Song ist zum Abspielen zu groß</translation>
    </message>
    <message>
        <source>La song dura più di 6 ore</source>
        <translation>Der Song ist länger als 6 Stunden</translation>
    </message>
    <message>
        <source>Nella song non c&apos;è niente da sentire</source>
        <translation>In dem Song gibt es nichts zu hören</translation>
    </message>
</context>
<context>
    <name>EmptyListPage</name>
    <message>
        <source>Riapri l&apos;ultima lista</source>
        <translation>Letzte Liste wieder öffnen</translation>
    </message>
    <message>
        <source>Rilascia qui le song</source>
        <translation>Songs hier loslassen</translation>
    </message>
    <message>
        <source>Trascina qui song o cartelle</source>
        <translation>Songs oder Ordner hierher ziehen</translation>
    </message>
    <message>
        <source>In tre passi sulla memoria di Kavena</source>
        <translation>In drei Schritten auf Karte oder Stick</translation>
    </message>
    <message>
        <source>&lt;b&gt;Scegli le song&lt;/b&gt; o trascinale qui, anche cartelle intere.</source>
        <translation>&lt;b&gt;Songs auswählen&lt;/b&gt; oder hierher ziehen, auch ganze Ordner.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Sincronizza:&lt;/b&gt; i dati che mancano, come titolo e artista, arrivano dal catalogo.</source>
        <translation>&lt;b&gt;Synchronisieren:&lt;/b&gt; Fehlende Angaben wie Titel und Interpret kommen aus dem Katalog.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Trasferisci:&lt;/b&gt; le song vanno nella memoria di Kavena, pronte da suonare.</source>
        <translation>&lt;b&gt;Übertragen:&lt;/b&gt; Die Songs kommen auf Karte oder Stick, bereit zum Spielen.</translation>
    </message>
    <message>
        <source>Scegli &amp;song...</source>
        <translation>&amp;Songs auswählen...</translation>
    </message>
    <message>
        <source>Scegli c&amp;artella...</source>
        <translation>&amp;Ordner auswählen...</translation>
    </message>
    <message>
        <source>Ci sono già song nella memoria?</source>
        <translation>Schon Songs auf Karte oder Stick?</translation>
    </message>
    <message>
        <source>G&amp;uarda la memoria...</source>
        <translation>Speicher &amp;ansehen...</translation>
    </message>
    <message>
        <source>O riprendi da una lista:</source>
        <translation>Oder mit einer Liste weitermachen:</translation>
    </message>
</context>
<context>
    <name>NoMatchPage</name>
    <message>
        <source>Nessuna song corrisponde al filtro</source>
        <translation>Kein Song passt zum Filter</translation>
    </message>
    <message numerus="yes">
        <source>%n song nascoste</source>
        <translation>
            <numerusform>%n Song ist ausgeblendet</numerusform>
            <numerusform>%n Songs sind ausgeblendet</numerusform>
        </translation>
    </message>
    <message>
        <source>Togli il filt&amp;ro</source>
        <translation>&amp;Filter aufheben</translation>
    </message>
</context>
<context>
    <name>SongStates</name>
    <message>
        <source>sincronizzata</source>
        <translation>synchronisiert</translation>
    </message>
    <message>
        <source>modificata</source>
        <translation>bearbeitet</translation>
    </message>
    <message>
        <source>non sincronizzata</source>
        <translation>nicht synchronisiert</translation>
    </message>
    <message>
        <source>nuova</source>
        <translation>neu</translation>
    </message>
    <message>
        <source>Sincronizzata: ha i dati del catalogo</source>
        <translation>Synchronisiert: hat die Angaben aus dem Katalog</translation>
    </message>
    <message>
        <source>Modificata: ha i dati che hai scritto tu</source>
        <translation>Bearbeitet: hat die Angaben, die Sie geschrieben haben</translation>
    </message>
    <message>
        <source>Non sincronizzata: non è nel catalogo, o è rimasta com&apos;era</source>
        <translation>Nicht synchronisiert: steht nicht im Katalog oder blieb, wie er war</translation>
    </message>
    <message>
        <source>Nuova: non ancora sincronizzata</source>
        <translation>Neu: noch nicht synchronisiert</translation>
    </message>
</context>
<context>
    <name>StateButtons</name>
    <message>
        <source>Premi per vedere solo queste song</source>
        <translation>Drücken, um nur diese Songs zu sehen</translation>
    </message>
</context>
<context>
    <name>SyncSummaryBar</name>
    <message>
        <source>%1 di %2 trovate</source>
        <translation>%1 von %2 gefunden</translation>
    </message>
    <message>
        <source>%1 non nel catalogo</source>
        <translation>%1 nicht im Katalog</translation>
    </message>
    <message>
        <source>%1 non raggiunte</source>
        <translation>%1 nicht mehr erreicht</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>%1 senza modifiche</source>
        <translation>%1 unverändert gelassen</translation>
    </message>
    <message>
        <source>Modifica&amp;le...</source>
        <translation>Bea&amp;rbeiten...</translation>
    </message>
    <message>
        <source>Aggiungile al mio catalo&amp;go...</source>
        <translation>Zu &amp;meinem Katalog hinzufügen...</translation>
    </message>
    <message>
        <source>%1 nel mio catalogo</source>
        <translation>%1 in meinem Katalog</translation>
    </message>
</context>
<context>
    <name>PlayerBar</name>
    <message>
        <source>Scegli un sound font</source>
        <translation>Soundfont wählen</translation>
    </message>
    <message>
        <source>Sound font (*.sf2 *.sf3)</source>
        <translation>Soundfonts (*.sf2 *.sf3)</translation>
    </message>
    <message>
        <source>Pausa</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Suona</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>%1 (barra spaziatrice)</source>
        <translation>%1 (Leertaste)</translation>
    </message>
    <message>
        <source>Ascolto</source>
        <translation>Anhören</translation>
    </message>
    <message>
        <source>Ferma</source>
        <translation>Stopp</translation>
    </message>
    <message>
        <source>Posizione nella song</source>
        <translation>Stelle im Song</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Lautstärke</translation>
    </message>
    <message>
        <source>Sound font per le song MIDI</source>
        <translation>Soundfont für MIDI-Songs</translation>
    </message>
    <message>
        <source>Scegli un sound font...</source>
        <translation>Soundfont wählen...</translation>
    </message>
    <message>
        <source>Usa quello installato</source>
        <translation>Den installierten verwenden</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Abschnitte</translation>
    </message>
    <message>
        <source>Vai a un marker della song</source>
        <translation>Zu einem Abschnitt des Songs gehen</translation>
    </message>
</context>
<context>
    <name>LibrariesDialog</name>
    <message>
        <source>Librerie usate</source>
        <translation>Verwendete Bibliotheken</translation>
    </message>
    <message>
        <source>Nome</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Licenza</source>
        <translation>Lizenz</translation>
    </message>
    <message>
        <source>A che cosa serve</source>
        <translation>Wozu</translation>
    </message>
    <message>
        <source>finestre, testi e file</source>
        <translation>Fenster, Texte und Dateien</translation>
    </message>
    <message>
        <source>dominio pubblico</source>
        <translation>gemeinfrei</translation>
    </message>
    <message>
        <source>catalogo, lista e cronologia</source>
        <translation>Katalog, Liste und Verlauf</translation>
    </message>
    <message>
        <source>lettere che il player non ha</source>
        <translation>Buchstaben, die der Player nicht hat</translation>
    </message>
    <message>
        <source>tag dei file MP3</source>
        <translation>Tags von MP3-Dateien</translation>
    </message>
    <message>
        <source>compressione della cronologia</source>
        <translation>Kompression des Verlaufs</translation>
    </message>
    <message>
        <source>ascolto delle song</source>
        <translation>Anhören der Songs</translation>
    </message>
    <message>
        <source>suono delle song MIDI e MFX</source>
        <translation>Klang der MIDI- und MFX-Songs</translation>
    </message>
</context>
<context>
    <name>ShortcutsDialog</name>
    <message>
        <source>Tasti di scelta rapida</source>
        <translation>Tastenkürzel</translation>
    </message>
    <message>
        <source>Tasti</source>
        <translation>Tasten</translation>
    </message>
    <message>
        <source>Comando</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Nelle liste</source>
        <translation>In den Listen</translation>
    </message>
    <message>
        <source>Ascolta la song scelta</source>
        <translation>Den gewählten Song anhören</translation>
    </message>
    <message>
        <source>Contenuto della memoria</source>
        <translation>Speicherinhalt</translation>
    </message>
    <message>
        <source>Cerca song</source>
        <translation>Songs suchen</translation>
    </message>
    <message>
        <source>Rileggi la memoria</source>
        <translation>Speicher neu lesen</translation>
    </message>
</context>
<context>
    <name>InfoTableDialog</name>
    <message>
        <source>&amp;Chiudi</source>
        <translation>&amp;Schließen</translation>
    </message>
</context>
</TS>
