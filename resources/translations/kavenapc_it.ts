<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="it_IT">
<context>
    <name>AboutDialog</name>
    <message>
        <source>Informazioni</source>
        <translation>Informazioni su Kavena PC</translation>
    </message>
    <message>
        <source>Kavena PC</source>
        <translation>Kavena PC</translation>
    </message>
    <message>
        <source>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Build date: %2&lt;br/&gt;</source>
        <translation>Versione:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Data di compilazione: %2&lt;br/&gt;</translation>
    </message>
    <message>
        <source>(c) 2011 K-Ravo. Tutti i diritti riservati.&lt;br/&gt;I nomi e i marchi citati appartengono ai rispettivi proprietari.&lt;br/&gt;&lt;a href=&quot;https://kravo.example/&quot;&gt;https://kravo.example/&lt;/a&gt;</source>
        <translation>© 2011 K-Ravo. Tutti i diritti riservati.&lt;br/&gt;I nomi e i marchi citati appartengono ai rispettivi proprietari.&lt;br/&gt;&lt;a href=&quot;https://kravo.example/&quot;&gt;https://kravo.example/&lt;/a&gt;</translation>
    </message>
    <message>
        <source>Assistenza:</source>
        <translation>Assistenza:</translation>
    </message>
    <message>
        <source>&amp;Librerie e licenze...</source>
        <translation>&amp;Librerie e licenze...</translation>
    </message>
</context>
<context>
    <name>BackupDialog</name>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Cartella di backup</source>
        <translation>Cartella di backup</translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation>&amp;Sfoglia...</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Prosegui senza backup</source>
        <translation>&amp;Prosegui senza backup</translation>
    </message>
    <message>
        <source>Esegui backup</source>
        <translation>&amp;Esegui backup</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>Si consiglia di effettuare un backup della libreria prima di procedere con l&apos;aggiornamento.
Selezionare una cartella di destinazione per il backup oppure premere &apos;Prosegui senza backup&apos;.</source>
        <translation>Si consiglia di effettuare un backup della libreria prima di procedere con l&apos;aggiornamento.
Selezionare una cartella di destinazione per il backup oppure premere &apos;Prosegui senza backup&apos;.</translation>
    </message>
</context>
<context>
    <name>ChangePreview</name>
    <message>
        <source>Anteprima delle modifiche</source>
        <translation>Anteprima delle modifiche</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>sì</translation>
    </message>
    <message>
        <source>no</source>
        <translation>no</translation>
    </message>
    <message>
        <source>Confronto le song con il database...</source>
        <translation>Confronto le song con il database...</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Interprete</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autore</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Durata</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Tonalità</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>Marker attivi</source>
        <translation>Marker attivi</translation>
    </message>
    <message>
        <source>(vuoto)</source>
        <translation>(vuoto)</translation>
    </message>
    <message>
        <source>il mio catalogo</source>
        <translation>il mio catalogo</translation>
    </message>
    <message>
        <source>catalogo del programma</source>
        <translation>catalogo del programma</translation>
    </message>
</context>
<context>
    <name>ChangePreviewDialog</name>
    <message>
        <source>Anteprima delle modifiche</source>
        <translation>Anteprima delle modifiche</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song e campo</translation>
    </message>
    <message>
        <source>Valore attuale</source>
        <translation>Valore attuale</translation>
    </message>
    <message>
        <source>Nuovo valore</source>
        <translation>Nuovo valore</translation>
    </message>
    <message>
        <source>Nessun file è stato ancora modificato.</source>
        <translation>Nessun file è stato ancora modificato.</translation>
    </message>
    <message>
        <source>Sincronizza</source>
        <translation>&amp;Sincronizza</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>%1 (verrà chiesta conferma)</source>
        <translation>%1 (verrà chiesta conferma)</translation>
    </message>
    <message>
        <source>La sincronizzazione modificherebbe questi dati:</source>
        <translation>La sincronizzazione modificherebbe questi &amp;dati:</translation>
    </message>
    <message>
        <source>Song che verrebbero modificate: %1 di %2
Song non presenti nel database: %3
Song non leggibili: %4</source>
        <translation>Song che verrebbero modificate: %1 di %2
Song non presenti nel database: %3
Song non leggibili: %4</translation>
    </message>
    <message>
        <source>%1 (&quot;?&quot; al posto di: %2)</source>
        <translation>%1 (&quot;?&quot; al posto di: %2)</translation>
    </message>
</context>
<context>
    <name>DataEditDialog</name>
    <message>
        <source>Modifica dati song</source>
        <translation>Modifica dati song</translation>
    </message>
    <message>
        <source>Percorso file:</source>
        <translation>Percorso file:</translation>
    </message>
    <message>
        <source>Formato:</source>
        <translation>Formato:</translation>
    </message>
    <message>
        <source>Modifica i dati della Song:</source>
        <translation>Modifica i dati della Song:</translation>
    </message>
    <message>
        <source>Titolo Song:</source>
        <translation>&amp;Titolo Song:</translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation>Applica a tutti</translation>
    </message>
    <message>
        <source>Usa il titolo</source>
        <translation>&amp;Usa il titolo</translation>
    </message>
    <message>
        <source>Usa il filename</source>
        <translation>Usa il &amp;nome del file</translation>
    </message>
    <message>
        <source>Interprete:</source>
        <translation>&amp;Interprete:</translation>
    </message>
    <message>
        <source>Genere Musicale:</source>
        <translation>&amp;Genere Musicale:</translation>
    </message>
    <message>
        <source>Autore:</source>
        <translation>&amp;Autore:</translation>
    </message>
    <message>
        <source>Durata:</source>
        <translation>&amp;Durata:</translation>
    </message>
    <message>
        <source>mm</source>
        <translation>min</translation>
    </message>
    <message>
        <source>ss</source>
        <translation>sec</translation>
    </message>
    <message>
        <source>Tonalità:</source>
        <translation>T&amp;onalità:</translation>
    </message>
    <message>
        <source>BPM:</source>
        <translation>&amp;BPM:</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>&amp;Salva</translation>
    </message>
    <message>
        <source>Il titolo di tutte le song della lista verrà sovrascritto non il nome del file, sei sicuro?</source>
        <translation>Il titolo di tutte le song della lista verrà sovrascritto con il nome del file, sei sicuro?</translation>
    </message>
    <message>
        <source>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</translation>
    </message>
    <message>
        <source>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</translation>
    </message>
    <message>
        <source>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation>ATTENZIONE</translation>
    </message>
    <message>
        <source>Il player mostrerà &quot;?&quot; al posto di: %1</source>
        <translation>Il player mostrerà &quot;?&quot; al posto di: %1</translation>
    </message>
    <message>
        <source>Il valore inserito verrà applicato a tutte le song scelte, sei sicuro?</source>
        <translation>Il valore inserito verrà applicato a tutte le song scelte, sei sicuro?</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation>Aiuto Kavena PC</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Aiuto</translation>
    </message>
    <message>
        <source>Cerca nell&apos;aiuto</source>
        <translation>Cerca nell&apos;aiuto</translation>
    </message>
    <message>
        <source>&amp;Precedente</source>
        <translation>&amp;Precedente</translation>
    </message>
    <message>
        <source>&amp;Successivo</source>
        <translation>&amp;Successivo</translation>
    </message>
    <message>
        <source>Nessun risultato: prova un&apos;altra parola.</source>
        <translation>Nessun risultato: prova un&apos;altra parola.</translation>
    </message>
    <message>
        <source>Risultato %1 di %2</source>
        <translation>Risultato %1 di %2</translation>
    </message>
</context>
<context>
    <name>Index</name>
    <message>
        <source>verrà rinominato: </source>
        <translation>verrà rinominato: </translation>
    </message>
    <message>
        <source>Se il file non viene rinominato, è possibile che non venga rilevato da Kavena.</source>
        <translation>Se il file non viene rinominato, è possibile che non venga rilevato da Kavena.</translation>
    </message>
    <message>
        <source>File non importato, errore nel path:</source>
        <translation>File non inserito, errore nel percorso:</translation>
    </message>
    <message>
        <source>File non importato, path troppo lungo: </source>
        <translation>File non inserito, percorso troppo lungo: </translation>
    </message>
    <message>
        <source>File non importato, troppi file nella memoria: </source>
        <translation>File non inserito, troppi file nella memoria: </translation>
    </message>
    <message>
        <source>File non importato, non può essere letto: </source>
        <translation>File non importato, non può essere letto: </translation>
    </message>
    <message>
        <source>Non importato, il nome non è in UTF-8: </source>
        <translation>Non importato, il nome non è in UTF-8: </translation>
    </message>
    <message>
        <source>Cartella non leggibile, le sue song non sono state cercate: </source>
        <translation>Cartella non leggibile, le sue song non sono state cercate: </translation>
    </message>
    <message>
        <source>File non importato, il nome differisce da un altro solo per le maiuscole: </source>
        <translation>File non inserito, il nome differisce da un altro solo per le maiuscole: </translation>
    </message>
    <message>
        <source>File non rinominato, l&apos;ultimo salvataggio non è stato completato: </source>
        <translation>File non rinominato, l&apos;ultimo salvataggio non è stato completato: </translation>
    </message>
    <message>
        <source>TITOLO</source>
        <translation>TITOLO</translation>
    </message>
    <message>
        <source>ARTISTA</source>
        <translation>ARTISTA</translation>
    </message>
    <message>
        <source>GENERE</source>
        <translation>GENERE</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Nome troppo lungo, il player non lo trova: </source>
        <translation>Nome troppo lungo, il player non lo trova: </translation>
    </message>
</context>
<context>
    <name>IndexDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Ottimizza memoria</translation>
    </message>
    <message>
        <source>Seleziona la cartella principale della Compact Flash o della Penna USB che vuoi ottimizzare per Kavena:</source>
        <translation>Seleziona la cartella &amp;principale della Compact Flash o della Penna USB che vuoi ottimizzare per Kavena:</translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation>&amp;Sfoglia</translation>
    </message>
    <message>
        <source>Seleziona l&apos;azione che vuoi eseguire:</source>
        <translation>Seleziona l&apos;a&amp;zione che vuoi eseguire:</translation>
    </message>
    <message>
        <source>Ho inserito o eliminato alcune song, aggiorna database</source>
        <translation>Ho inserito o eliminato alcune song, &amp;aggiorna database</translation>
    </message>
    <message>
        <source>Ho problemi con gli archivi, ricostruisci database</source>
        <translation>Ho problemi con gli archivi, &amp;ricostruisci database</translation>
    </message>
    <message>
        <source>Controlla struttura memoria</source>
        <translation>Controlla struttura &amp;memoria</translation>
    </message>
    <message>
        <source>File found:</source>
        <translation>File trovati:</translation>
    </message>
    <message>
        <source>Report:</source>
        <translation>Rappor&amp;to:</translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation>&amp;Inizia</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>&amp;Chiudi</translation>
    </message>
    <message>
        <source>Ottimizzazione memoria in corso...</source>
        <translation>Ottimizzazione memoria in corso...</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operazione completata</translation>
    </message>
    <message>
        <source>Ottimizza memoria</source>
        <translation>Ottimizza memoria</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>Il percorso selezionato non esiste</translation>
    </message>
    <message>
        <source>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</source>
        <translation>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</translation>
    </message>
    <message>
        <source>Operazione completata con successo</source>
        <translation>Operazione completata con successo</translation>
    </message>
    <message>
        <source>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</source>
        <translation>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>M&amp;emoria:</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>Cartella:</translation>
    </message>
    <message>
        <source>Il percorso selezionato non è una cartella</source>
        <translation>Il percorso selezionato non è una cartella</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Kavena PC</source>
        <translation>Kavena PC</translation>
    </message>
    <message>
        <source>Seleziona le basi musicali che desideri inserire nella memoria di Kavena</source>
        <translation>Seleziona le basi musicali che desideri inserire nella memoria di Kavena</translation>
    </message>
    <message>
        <source>Sincronizza song con il database K-Ravo</source>
        <translation>Sincronizza song con il database K-Ravo</translation>
    </message>
    <message>
        <source>Trasferisci song nella memoria di Kavena</source>
        <translation>Trasferisci song nella memoria di Kavena</translation>
    </message>
    <message>
        <source>Opzioni nascoste</source>
        <translation>Opzioni nascoste</translation>
    </message>
    <message>
        <source>Abilita log (riavvio necessario!)</source>
        <translation>Abilita log (riavvio necessario!)</translation>
    </message>
    <message>
        <source>Cancella log ad ogni avvio</source>
        <translation>Cancella log ad ogni avvio</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Aggiungi marker</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Salva</translation>
    </message>
    <message>
        <source>Import again</source>
        <translation>Importa di nuovo</translation>
    </message>
    <message>
        <source>Hide Debug</source>
        <translation>Nascondi debug</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>Manual Dialog</source>
        <translation>Dialogo manuale</translation>
    </message>
    <message>
        <source>File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>Preferenze</source>
        <translation>&amp;Preferenze</translation>
    </message>
    <message>
        <source>Lingua</source>
        <translation>&amp;Lingua</translation>
    </message>
    <message>
        <source>Messaggi Copyright</source>
        <translation>&amp;Messaggi Copyright</translation>
    </message>
    <message>
        <source>Strumenti</source>
        <translation>&amp;Strumenti</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>&amp;Aiuto</translation>
    </message>
    <message>
        <source>Esci</source>
        <translation>&amp;Esci</translation>
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
        <translation>&amp;Si</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Rigenera il database delle song</source>
        <translation>&amp;Rigenera il database delle song...</translation>
    </message>
    <message>
        <source>Salva lista delle song</source>
        <translation>&amp;Salva lista delle song...</translation>
    </message>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation>&amp;Aiuto Kavena PC...</translation>
    </message>
    <message>
        <source>Informazioni</source>
        <translation>&amp;Informazioni su Kavena PC...</translation>
    </message>
    <message>
        <source>Informazioni su QT</source>
        <translation>Informazioni su &amp;Qt...</translation>
    </message>
    <message>
        <source>Seleziona i file da importare</source>
        <translation>Seleziona i file da importare</translation>
    </message>
    <message>
        <source>Lettura file</source>
        <translation>Lettura file</translation>
    </message>
    <message>
        <source>Importo la libreria...</source>
        <translation>Importo la libreria...</translation>
    </message>
    <message>
        <source>Backup eseguito correttamente</source>
        <translation>Backup eseguito correttamente</translation>
    </message>
    <message>
        <source>Backup FALLITO !!!</source>
        <translation>Backup FALLITO!</translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation>&amp;Rimuovi dalla lista</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>Cance&amp;lla file...</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Attenzione</translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare il file?</source>
        <translation>Sei sicuro di voler cancellare il file?</translation>
    </message>
    <message>
        <source>Interrompi</source>
        <translation>&amp;Interrompi</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 di %2</translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <translation>Aggiornamento file</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Aggiorno la libreria...</translation>
    </message>
    <message>
        <source>Eseguo backup dellla libreria...</source>
        <translation>Eseguo il backup della libreria...</translation>
    </message>
    <message>
        <source>esiste già, vuoi sostituirlo?</source>
        <translation>esiste già, vuoi sostituirlo?</translation>
    </message>
    <message>
        <source>Trasferimento</source>
        <translation>Trasferimento</translation>
    </message>
    <message>
        <source>Tutti i file sono stati copiati correttamente</source>
        <translation>Tutti i file sono stati copiati correttamente</translation>
    </message>
    <message>
        <source>Non è stato possibile copiare uno o più file</source>
        <translation>Non è stato possibile copiare uno o più file</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Aggiornamento</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Aggiornamento database...</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sul disco di sistema</source>
        <translation>Non è possibile copiare i file sul disco di sistema</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</source>
        <translation>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</translation>
    </message>
    <message>
        <source>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Kavena, selezionare un&apos;altra cartella</source>
        <translation>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perché sono riservate per funzionalità specifiche di Kavena, selezionare un&apos;altra cartella</translation>
    </message>
    <message>
        <source>Lo spazio libero nella memoria non è sufficiente: mancano %1.
Si vuole procedere comunque con la copia?</source>
        <translation>Lo spazio libero nella memoria non è sufficiente: mancano %1.
Si vuole procedere comunque con la copia?</translation>
    </message>
    <message>
        <source>Trasferimento file...</source>
        <translation>Trasferimento file...</translation>
    </message>
    <message>
        <source>Mostra le modifiche prima di sincronizzare</source>
        <translation>Mostra le &amp;modifiche prima di sincronizzare</translation>
    </message>
    <message>
        <source>Song copiate: %1</source>
        <translation>Song copiate: %1</translation>
    </message>
    <message>
        <source>Song saltate: %1</source>
        <translation>Song saltate: %1</translation>
    </message>
    <message>
        <source>Song non più copiate dopo l&apos;interruzione: %1</source>
        <translation>Song non più copiate dopo l&apos;interruzione: %1</translation>
    </message>
    <message>
        <source>Il database della memoria non è stato aggiornato.</source>
        <translation>Il database della memoria non è stato aggiornato.</translation>
    </message>
    <message>
        <source>esiste già un file con questo nome</source>
        <translation>esiste già un file con questo nome</translation>
    </message>
    <message>
        <source>%1: esisteva già e non è stata sostituita</source>
        <translation>%1: esisteva già e non è stata sostituita</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Cerca:</translation>
    </message>
    <message>
        <source>Titolo, artista, genere, autore o nome file</source>
        <translation>Titolo, artista, genere, autore o nome file</translation>
    </message>
    <message>
        <source>Lista delle song</source>
        <translation>Lista delle song</translation>
    </message>
    <message>
        <source>&amp;Ordina per</source>
        <translation>&amp;Ordina per</translation>
    </message>
    <message>
        <source>&amp;Seleziona song...</source>
        <translation>&amp;Seleziona song...</translation>
    </message>
    <message>
        <source>&amp;Trasferisci song...</source>
        <translation>&amp;Trasferisci song...</translation>
    </message>
    <message>
        <source>&amp;Modifica dati song...</source>
        <translation>&amp;Modifica dati song...</translation>
    </message>
    <message>
        <source>&amp;Rimuovi dalla lista</source>
        <translation>&amp;Rimuovi dalla lista</translation>
    </message>
    <message>
        <source>Cance&amp;lla file...</source>
        <translation>Cance&amp;lla file...</translation>
    </message>
    <message>
        <source>&amp;Cerca song</source>
        <translation>&amp;Cerca song</translation>
    </message>
    <message>
        <source>Nessuna song trovata</source>
        <translation>Nessuna song trovata</translation>
    </message>
    <message>
        <source>Cerco le song nelle cartelle...</source>
        <translation>Cerco le song nelle cartelle...</translation>
    </message>
    <message>
        <source>Song della memoria con problemi: %1</source>
        <translation>Song della memoria con problemi: %1</translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <comment>Apply to all</comment>
        <translation>Aggiornamento file</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <comment>Apply to all</comment>
        <translation>Aggiorno la libreria...</translation>
    </message>
    <message>
        <source>Song non copiate (errori): %1</source>
        <translation>Song non copiate (errori): %1</translation>
    </message>
    <message>
        <source>Si&amp;ncronizza song...</source>
        <translation>Si&amp;ncronizza song...</translation>
    </message>
    <message>
        <source>la memoria restituisce byte diversi da quelli scritti</source>
        <translation>la memoria restituisce byte diversi da quelli scritti</translation>
    </message>
    <message>
        <source>Il piano è stato eseguito</source>
        <translation>Il piano è stato eseguito</translation>
    </message>
    <message>
        <source>Non è stato possibile eseguire tutto il piano</source>
        <translation>Non è stato possibile eseguire tutto il piano</translation>
    </message>
    <message>
        <source>Confronto con la memoria...</source>
        <translation>Confronto con la memoria...</translation>
    </message>
    <message>
        <source>Song già presenti: %1</source>
        <translation>Song già presenti: %1</translation>
    </message>
    <message>
        <source>Song rimosse: %1</source>
        <translation>Song rimosse: %1</translation>
    </message>
    <message>
        <source>Errori: %1</source>
        <translation>Errori: %1</translation>
    </message>
    <message>
        <source>%1: rimossa</source>
        <translation>%1: rimossa</translation>
    </message>
    <message>
        <source>%1: sostituita</source>
        <translation>%1: sostituita</translation>
    </message>
    <message>
        <source>La cartella %1 è un collegamento a un&apos;altra cartella, dove le song non possono essere copiate</source>
        <translation>La cartella %1 è un collegamento a un&apos;altra cartella, dove le song non possono essere copiate</translation>
    </message>
    <message>
        <source>una song dell&apos;elenco si trova lì con questo nome</source>
        <translation>una song dell&apos;elenco si trova lì con questo nome</translation>
    </message>
    <message>
        <source>%1: sostituita da un&apos;altra song scelta con lo stesso nome</source>
        <translation>%1: sostituita da un&apos;altra song scelta con lo stesso nome</translation>
    </message>
    <message>
        <source>&amp;Piano di trasferimento...</source>
        <translation>&amp;Piano di trasferimento...</translation>
    </message>
    <message>
        <source>Contenuto della memoria...</source>
        <translation>Contenuto della memoria...</translation>
    </message>
    <message>
        <source>Mostra la memoria</source>
        <translation>Mostra la memoria</translation>
    </message>
    <message>
        <source>Espelli la memoria</source>
        <translation>Espelli la memoria</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>&amp;Modifica</translation>
    </message>
    <message>
        <source>&amp;Annulla l&apos;ultimo lavoro...</source>
        <translation>&amp;Annulla l&apos;ultimo lavoro...</translation>
    </message>
    <message>
        <source>&amp;Cronologia...</source>
        <translation>&amp;Cronologia...</translation>
    </message>
    <message>
        <source>Modifica &amp;più song...</source>
        <translation>Modifica &amp;più song...</translation>
    </message>
    <message>
        <source>&amp;Rinomina i file...</source>
        <translation>&amp;Rinomina i file...</translation>
    </message>
    <message>
        <source>Prepara i ta&amp;g MP3...</source>
        <translation>Prepara i ta&amp;g MP3...</translation>
    </message>
    <message>
        <source>A&amp;ggiungi file...</source>
        <translation>A&amp;ggiungi file...</translation>
    </message>
    <message>
        <source>Aggiung&amp;i cartella...</source>
        <translation>Aggiung&amp;i cartella...</translation>
    </message>
    <message>
        <source>&amp;Apri lista...</source>
        <translation>&amp;Apri lista...</translation>
    </message>
    <message>
        <source>Sal&amp;va lista...</source>
        <translation>Sal&amp;va lista...</translation>
    </message>
    <message>
        <source>Ria&amp;pri l&apos;ultima lista</source>
        <translation>Ria&amp;pri l&apos;ultima lista</translation>
    </message>
    <message>
        <source>&amp;Usati di recente</source>
        <translation>&amp;Usati di recente</translation>
    </message>
    <message>
        <source>&amp;Aggiungi al mio catalogo</source>
        <translation>&amp;Aggiungi al mio catalogo</translation>
    </message>
    <message>
        <source>Aggiungi al mio catalogo</source>
        <translation>Aggiungi al mio catalogo</translation>
    </message>
    <message>
        <source>&amp;Il mio catalogo...</source>
        <translation>&amp;Il mio catalogo...</translation>
    </message>
    <message>
        <source>C&amp;opia</source>
        <translation>C&amp;opia</translation>
    </message>
    <message>
        <source>Copia tutta la &amp;lista</source>
        <translation>Copia tutta la &amp;lista</translation>
    </message>
    <message>
        <source>Colo&amp;nne</source>
        <translation>Colo&amp;nne</translation>
    </message>
    <message>
        <source>Stampa lista...</source>
        <translation>Stampa lista...</translation>
    </message>
    <message>
        <source>&amp;Completa dalla musica...</source>
        <translation>&amp;Completa dalla musica...</translation>
    </message>
    <message>
        <source>Scegli song</source>
        <translation>Scegli song</translation>
    </message>
    <message>
        <source>Sincronizza</source>
        <translation>Sincronizza</translation>
    </message>
    <message>
        <source>Trasferisci</source>
        <translation>Trasferisci</translation>
    </message>
    <message>
        <source>&amp;Tasti di scelta rapida...</source>
        <translation>&amp;Tasti di scelta rapida...</translation>
    </message>
</context>
<context>
    <name>MemoryList</name>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>%1 – %2 liberi di %3</source>
        <translation>%1 – %2 liberi di %3</translation>
    </message>
    <message>
        <source>Nessuna memoria collegata</source>
        <translation>Nessuna memoria collegata</translation>
    </message>
    <message>
        <source>Scegli una memoria</source>
        <translation>Scegli una memoria</translation>
    </message>
</context>
<context>
    <name>MemoryLock</name>
    <message>
        <source>Nella memoria c&apos;è una cartella &quot;%1&quot;: il programma ha bisogno di questo nome.
Spostarla o cancellarla e riprovare.</source>
        <translation>Nella memoria c&apos;è una cartella &quot;%1&quot;: il programma ha bisogno di questo nome.
Spostarla o cancellarla e riprovare.</translation>
    </message>
    <message>
        <source>Un altro programma sta scrivendo su questa memoria.
Non è stato cambiato nulla. Riprovare quando avrà finito.</source>
        <translation>Un altro programma sta scrivendo su questa memoria.
Non è stato cambiato nulla. Riprovare quando avrà finito.</translation>
    </message>
    <message>
        <source>Un altro programma sta scrivendo su questa memoria: %1 (processo %2 sul computer %3, dal %4).
Non è stato cambiato nulla. Riprovare quando avrà finito.</source>
        <translation>Un altro programma sta scrivendo su questa memoria: %1 (processo %2 sul computer %3, dal %4).
Non è stato cambiato nulla. Riprovare quando avrà finito.</translation>
    </message>
</context>
<context>
    <name>NoCopyrightDialog</name>
    <message>
        <source>Richiesta conferma</source>
        <translation>Richiesta conferma</translation>
    </message>
    <message>
        <source>Il file:</source>
        <translation>Il file:</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Non è stato pubblicato da K-Ravo. Si vuole procedere comunque con le modifiche?</source>
        <translation>Non è stato pubblicato da K-Ravo. Si vuole procedere comunque con le modifiche?</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>&amp;Si</translation>
    </message>
    <message>
        <source>Si tutti</source>
        <translation>Si &amp;tutti</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>No tutti</source>
        <translation>N&amp;o tutti</translation>
    </message>
</context>
<context>
    <name>ProceedDialog</name>
    <message>
        <source>Riassunto importazione</source>
        <translation>Riassunto importazione</translation>
    </message>
    <message>
        <source>Si vuole procedere alla sincronizzazione automatica con il database?</source>
        <translation>Si vuole procedere alla sincronizzazione automatica con il database?</translation>
    </message>
    <message>
        <source>Non mostrare più messaggi sul copyright</source>
        <translation>Non &amp;mostrare più messaggi sul copyright</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>&amp;Si</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)K-Ravo</source>
        <translation>File esaminati: %1, song trovate: %2, di cui © K-Ravo: %3</translation>
    </message>
</context>
<context>
    <name>SongsListDialog</name>
    <message>
        <source>Salva lista song</source>
        <translation>Salva lista song</translation>
    </message>
    <message>
        <source>CF/USB:</source>
        <translation>&amp;Cartella:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Sfoglia</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>&amp;File:</translation>
    </message>
    <message>
        <source>Ordina per:</source>
        <translation>&amp;Ordina per:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>&amp;Salva</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>C&amp;hiudi</translation>
    </message>
    <message>
        <source>Scegli nome del file</source>
        <translation>Scegli nome del file</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>Il percorso selezionato non esiste</translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation>Il percorso di destinazione non esiste</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operazione completata</translation>
    </message>
    <message>
        <source>Impossibile proseguire, la memoria non è preparata per Kavena</source>
        <translation>Impossibile proseguire, la memoria non è preparata per Kavena</translation>
    </message>
    <message>
        <source>Errore durante la creazione del file</source>
        <translation>Errore durante la creazione del file</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>&amp;Memoria:</translation>
    </message>
    <message>
        <source>File (*.csv)</source>
        <translation>File (*.csv)</translation>
    </message>
</context>
<context>
    <name>SortMenu</name>
    <message>
        <source>Ordine di importazione</source>
        <translation>Ordine di importazione</translation>
    </message>
</context>
<context>
    <name>StatusSummary</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
    <message>
        <source>mostrate: %1</source>
        <translation>mostrate: %1</translation>
    </message>
    <message>
        <source>nuove: %1</source>
        <translation>nuove: %1</translation>
    </message>
    <message>
        <source>sincronizzate: %1</source>
        <translation>sincronizzate: %1</translation>
    </message>
    <message>
        <source>modificate: %1</source>
        <translation>modificate: %1</translation>
    </message>
    <message>
        <source>non sincronizzate: %1</source>
        <translation>non sincronizzate: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n file non leggibili...</source>
        <translation>
            <numerusform>%n file non leggibile...</numerusform>
            <numerusform>%n file non leggibili...</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n tag da preparare...</source>
        <translation>
            <numerusform>%n tag da preparare...</numerusform>
            <numerusform>%n tag da preparare...</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UnreadableFilesDialog</name>
    <message>
        <source>File non leggibili</source>
        <translation>File non leggibili</translation>
    </message>
    <message>
        <source>Questi file non sono stati inseriti &amp;nella lista:</source>
        <translation>Questi file non sono stati inseriti &amp;nella lista:</translation>
    </message>
    <message>
        <source>Il file non esiste</source>
        <translation>Il file non esiste</translation>
    </message>
    <message>
        <source>Non è un file normale</source>
        <translation>Non è un file normale</translation>
    </message>
    <message>
        <source>Il file non può essere aperto</source>
        <translation>Il file non può essere aperto</translation>
    </message>
    <message>
        <source>Il file è vuoto</source>
        <translation>Il file è vuoto</translation>
    </message>
    <message>
        <source>Formato non riconosciuto</source>
        <translation>Formato non riconosciuto</translation>
    </message>
    <message>
        <source>Il file è danneggiato</source>
        <translation>Il file è danneggiato</translation>
    </message>
</context>
<context>
    <name>UserSongsRelTableModel</name>
    <message>
        <source>Num</source>
        <translation>N.</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autore</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Durata</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalita&apos;</source>
        <translation>Tonalità</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>Nome file</translation>
    </message>
    <message>
        <source>Cartella</source>
        <translation>Cartella</translation>
    </message>
</context>
<context>
    <name>WriteProblem</name>
    <message>
        <source>La memoria non c&apos;è più. È stata estratta?</source>
        <translation>La memoria non c&apos;è più. È stata estratta?</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura.
Togliere la protezione e riprovare.</source>
        <translation>La memoria è protetta da scrittura.
Togliere la protezione e riprovare.</translation>
    </message>
    <message>
        <source>La memoria è piena.
Liberare spazio e riprovare.</source>
        <translation>La memoria è piena.
Liberare spazio e riprovare.</translation>
    </message>
    <message>
        <source>Manca il permesso di scrivere sulla memoria.</source>
        <translation>Manca il permesso di scrivere sulla memoria.</translation>
    </message>
    <message>
        <source>Non è possibile scrivere sulla memoria.</source>
        <translation>Non è possibile scrivere sulla memoria.</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>il file non c&apos;è più</translation>
    </message>
    <message>
        <source>una cartella ha già questo nome</source>
        <translation>una cartella ha già questo nome</translation>
    </message>
    <message>
        <source>il nome è troppo lungo</source>
        <translation>il nome è troppo lungo</translation>
    </message>
    <message>
        <source>il file non può essere letto</source>
        <translation>il file non può essere letto</translation>
    </message>
    <message>
        <source>la cartella non c&apos;è più (la memoria è stata estratta?)</source>
        <translation>la cartella non c&apos;è più (la memoria è stata estratta?)</translation>
    </message>
    <message>
        <source>la memoria è protetta da scrittura</source>
        <translation>la memoria è protetta da scrittura</translation>
    </message>
    <message>
        <source>la memoria è piena</source>
        <translation>la memoria è piena</translation>
    </message>
    <message>
        <source>manca il permesso di scrivere</source>
        <translation>manca il permesso di scrivere</translation>
    </message>
    <message>
        <source>non può essere scritto</source>
        <translation>non può essere scritto</translation>
    </message>
    <message>
        <source>la memoria non ammette questi caratteri nel nome: %1</source>
        <translation>la memoria non ammette questi caratteri nel nome: %1</translation>
    </message>
    <message>
        <source>la memoria non ammette questo nome</source>
        <translation>la memoria non ammette questo nome</translation>
    </message>
</context>
<context>
    <name>FileListDialog</name>
    <message>
        <source>Nome file</source>
        <translation>Nome file</translation>
    </message>
    <message>
        <source>Motivo</source>
        <translation>Motivo</translation>
    </message>
    <message>
        <source>&amp;Chiudi</source>
        <translation>&amp;Chiudi</translation>
    </message>
</context>
<context>
    <name>MissingLibrary</name>
    <message>
        <source>La lista delle song non è disponibile</source>
        <translation>La lista delle song non è disponibile</translation>
    </message>
    <message>
        <source>Il database delle song non può essere aperto: le song non possono essere elencate, sincronizzate o trasferite.

Controllare che nella cartella dei file temporanei (%1) ci sia spazio e che vi si possa scrivere, poi riavviare il programma.</source>
        <translation>Il database delle song non può essere aperto: le song non possono essere elencate, sincronizzate o trasferite.

Controllare che nella cartella dei file temporanei (%1) ci sia spazio e che vi si possa scrivere, poi riavviare il programma.</translation>
    </message>
    <message>
        <source>Il programma non è installato per intero: manca il modulo di Qt per i database SQLite. Le song non possono essere elencate, sincronizzate o trasferite.

Installare di nuovo il programma.</source>
        <translation>Il programma non è installato per intero: manca il modulo di Qt per i database SQLite. Le song non possono essere elencate, sincronizzate o trasferite.

Installare di nuovo il programma.</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Attenzione</translation>
    </message>
</context>
<context>
    <name>RunReport</name>
    <message numerus="yes">
        <source>%n song non sono state salvate.</source>
        <translation>
            <numerusform>%n song non è stata salvata.</numerusform>
            <numerusform>%n song non sono state salvate.</numerusform>
        </translation>
    </message>
    <message>
        <source>Non salvata: %1</source>
        <translation>Non salvata: %1</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura</source>
        <translation>La memoria è protetta da scrittura</translation>
    </message>
    <message>
        <source>Non c&apos;è più spazio</source>
        <translation>Non c&apos;è più spazio</translation>
    </message>
    <message>
        <source>Il file non c&apos;è più</source>
        <translation>Il file non c&apos;è più</translation>
    </message>
    <message>
        <source>Il file non può essere modificato: mancano i permessi</source>
        <translation>Il file non può essere modificato: mancano i permessi</translation>
    </message>
    <message>
        <source>Il file è in uso da un altro programma</source>
        <translation>Il file è in uso da un altro programma</translation>
    </message>
    <message>
        <source>La memoria dà errori o è stata tolta</source>
        <translation>La memoria dà errori o è stata tolta</translation>
    </message>
    <message>
        <source>I dati sono troppi per questo formato</source>
        <translation>I dati sono troppi per questo formato</translation>
    </message>
    <message>
        <source>Il file non è leggibile</source>
        <translation>Il file non è leggibile</translation>
    </message>
    <message>
        <source>Il file non può essere scritto</source>
        <translation>Il file non può essere scritto</translation>
    </message>
    <message numerus="yes">
        <source>In %n song ci sono caratteri che il player mostra come &quot;?&quot;.</source>
        <translation>
            <numerusform>In %n song ci sono caratteri che il player mostra come &quot;?&quot;.</numerusform>
            <numerusform>In %n song ci sono caratteri che il player mostra come &quot;?&quot;.</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;?&quot; al posto di: %1</source>
        <translation>&quot;?&quot; al posto di: %1</translation>
    </message>
</context>
<context>
    <name>RunReportBox</name>
    <message>
        <source>Aggiornamento file</source>
        <translation>Aggiornamento file</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Dettagli...</translation>
    </message>
    <message>
        <source>Nella lista hanno un segnale di avviso. Tenendovi sopra il mouse si legge il motivo.</source>
        <translation>Nella lista hanno un segnale di avviso. Tenendovi sopra il mouse si legge il motivo.</translation>
    </message>
    <message>
        <source>Dettagli</source>
        <translation>Dettagli</translation>
    </message>
    <message>
        <source>Queste &amp;song non sono a posto:</source>
        <translation>Queste &amp;song non sono a posto:</translation>
    </message>
</context>
<context>
    <name>Arguments</name>
    <message>
        <source>Argomento sconosciuto: %1</source>
        <translation>Argomento sconosciuto: %1</translation>
    </message>
    <message>
        <source>L&apos;opzione vuole un solo valore: %1</source>
        <translation>L&apos;opzione vuole un solo valore: %1</translation>
    </message>
    <message>
        <source>Argomenti non validi</source>
        <translation>Argomenti non validi</translation>
    </message>
    <message>
        <source>L&apos;opzione non vuole un valore: %1</source>
        <translation>L&apos;opzione non vuole un valore: %1</translation>
    </message>
    <message>
        <source>Valore non valido per %1: %2</source>
        <translation>Valore non valido per %1: %2</translation>
    </message>
    <message>
        <source>Manca il comando</source>
        <translation>Manca il comando</translation>
    </message>
    <message>
        <source>Manca il dato da modificare, per esempio --title</source>
        <translation>Manca il dato da modificare, per esempio --title</translation>
    </message>
    <message>
        <source>Manca la cartella di destinazione: --to CARTELLA</source>
        <translation>Manca la cartella di destinazione: --to CARTELLA</translation>
    </message>
    <message>
        <source>Manca un argomento</source>
        <translation>Manca un argomento</translation>
    </message>
    <message>
        <source>Mancano i file</source>
        <translation>Mancano i file</translation>
    </message>
    <message>
        <source>Troppi argomenti</source>
        <translation>Troppi argomenti</translation>
    </message>
    <message>
        <source>--json e --csv non vanno insieme</source>
        <translation>--json e --csv non vanno insieme</translation>
    </message>
    <message>
        <source>%1 vale solo con %2</source>
        <translation>%1 vale solo con %2</translation>
    </message>
    <message>
        <source>--csv e --duplicates non vanno insieme</source>
        <translation>--csv e --duplicates non vanno insieme</translation>
    </message>
    <message>
        <source>Un nome è vuoto</source>
        <translation>Un nome è vuoto</translation>
    </message>
    <message>
        <source>Manca un passo, per esempio --pattern</source>
        <translation>Manca un passo, per esempio --pattern</translation>
    </message>
    <message>
        <source>Manca il file da scrivere: --to WAV</source>
        <translation>Manca il file da scrivere: --to WAV</translation>
    </message>
</context>
<context>
    <name>CatalogueCommand</name>
    <message>
        <source>Il catalogo non può essere aperto</source>
        <translation>Il catalogo non può essere aperto</translation>
    </message>
    <message>
        <source>Non è nel catalogo</source>
        <translation>Non è nel catalogo</translation>
    </message>
    <message>
        <source>Non contiene voci</source>
        <translation>Non contiene voci</translation>
    </message>
    <message>
        <source>La voce è già nel catalogo. Sostituirla?</source>
        <translation>La voce è già nel catalogo. Sostituirla?</translation>
    </message>
    <message>
        <source>Non c&apos;è ancora un catalogo</source>
        <translation>Non c&apos;è ancora un catalogo</translation>
    </message>
    <message>
        <source>Il file esiste già. Sostituirlo?</source>
        <translation>Il file esiste già. Sostituirlo?</translation>
    </message>
    <message>
        <source>Catalogo</source>
        <translation>Catalogo</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>titolo</source>
        <translation>titolo</translation>
    </message>
    <message>
        <source>interprete</source>
        <translation>interprete</translation>
    </message>
    <message>
        <source>genere</source>
        <translation>genere</translation>
    </message>
    <message>
        <source>autore</source>
        <translation>autore</translation>
    </message>
    <message>
        <source>tonalità, per esempio C, F# o A-; vuota per nessuna</source>
        <translation>tonalità, per esempio C, F# o A-; vuota per nessuna</translation>
    </message>
    <message>
        <source>tempo, da 0 a 999; 0 per nessuno</source>
        <translation>tempo, da 0 a 999; 0 per nessuno</translation>
    </message>
    <message>
        <source>durata in minuti e secondi</source>
        <translation>durata in minuti e secondi</translation>
    </message>
    <message>
        <source>copia prima le song in una nuova cartella in DIR</source>
        <translation>copia prima le song in una nuova cartella in DIR</translation>
    </message>
    <message>
        <source>mostra le modifiche e non scrive niente</source>
        <translation>mostra le modifiche e non scrive niente</translation>
    </message>
    <message>
        <source>modifica anche le song senza la firma del produttore</source>
        <translation>modifica anche le song senza la firma del produttore</translation>
    </message>
    <message>
        <source>la cartella di destinazione, in una memoria</source>
        <translation>la cartella di destinazione, in una memoria</translation>
    </message>
    <message>
        <source>accorcia i nomi troppo lunghi per il player</source>
        <translation>accorcia i nomi troppo lunghi per il player</translation>
    </message>
    <message>
        <source>l&apos;ordine dell&apos;elenco</source>
        <translation>l&apos;ordine dell&apos;elenco</translation>
    </message>
    <message>
        <source>una tabella con i campi separati da &quot;;&quot;</source>
        <translation>una tabella con i campi separati da &quot;;&quot;</translation>
    </message>
    <message>
        <source>un oggetto JSON per riga; i nomi sono nella pagina di manuale</source>
        <translation>un oggetto JSON per riga; i nomi sono nella pagina di manuale</translation>
    </message>
    <message>
        <source>legge altri nomi dallo standard input, ognuno chiuso da un byte zero</source>
        <translation>legge altri nomi dallo standard input, ognuno chiuso da un byte zero</translation>
    </message>
    <message>
        <source>Esempi:</source>
        <translation>Esempi:</translation>
    </message>
    <message>
        <source>Uso:</source>
        <translation>Uso:</translation>
    </message>
    <message>
        <source>Opzioni:</source>
        <translation>Opzioni:</translation>
    </message>
    <message>
        <source>mostra questo aiuto</source>
        <translation>mostra questo aiuto</translation>
    </message>
    <message>
        <source>mostra la versione</source>
        <translation>mostra la versione</translation>
    </message>
    <message>
        <source>dopo ci sono solo nomi di file</source>
        <translation>dopo ci sono solo nomi di file</translation>
    </message>
    <message>
        <source>Le domande senza risposta nelle opzioni si fanno solo su un terminale; altrove valgono come no.
Stato d&apos;uscita: 0 fatto, 1 fatto in parte, 2 uso errato, 3 niente di fatto.</source>
        <translation>Le domande senza risposta nelle opzioni si fanno solo su un terminale; altrove valgono come no.
Stato d&apos;uscita: 0 fatto, 1 fatto in parte, 2 uso errato, 3 niente di fatto.</translation>
    </message>
    <message>
        <source>rilegge dalla memoria ogni copia e la confronta</source>
        <translation>rilegge dalla memoria ogni copia e la confronta</translation>
    </message>
    <message>
        <source>copia ciò che è nuovo o diverso ed elenca le song in più</source>
        <translation>copia ciò che è nuovo o diverso ed elenca le song in più</translation>
    </message>
    <message>
        <source>con --in-line: rimuove le song in più, con le loro immagini</source>
        <translation>con --in-line: rimuove le song in più, con le loro immagini</translation>
    </message>
    <message>
        <source>solo le song che ci sono più volte, per gruppi</source>
        <translation>solo le song che ci sono più volte, per gruppi</translation>
    </message>
    <message>
        <source>elimina le song senza chiedere</source>
        <translation>elimina le song senza chiedere</translation>
    </message>
    <message>
        <source>anche una cartella che non è in una memoria</source>
        <translation>anche una cartella che non è in una memoria</translation>
    </message>
    <message>
        <source>modifica anche se la cronologia non può essere usata</source>
        <translation>modifica anche se la cronologia non può essere usata</translation>
    </message>
    <message>
        <source>annulla anche nelle song cambiate dopo</source>
        <translation>annulla anche nelle song cambiate dopo</translation>
    </message>
    <message>
        <source>i dati dal nome del file, per esempio %track - %artist - %title</source>
        <translation>i dati dal nome del file, per esempio %track - %artist - %title</translation>
    </message>
    <message>
        <source>un valore per tutte le song</source>
        <translation>un valore per tutte le song</translation>
    </message>
    <message>
        <source>un testo al posto di un altro</source>
        <translation>un testo al posto di un altro</translation>
    </message>
    <message>
        <source>lo stesso con un&apos;espressione regolare</source>
        <translation>lo stesso con un&apos;espressione regolare</translation>
    </message>
    <message>
        <source>le maiuscole non contano nei testi da cercare</source>
        <translation>le maiuscole non contano nei testi da cercare</translation>
    </message>
    <message>
        <source>maiuscole: title, upper, lower o first</source>
        <translation>maiuscole: title, upper, lower o first</translation>
    </message>
    <message>
        <source>due campi si scambiano</source>
        <translation>due campi si scambiano</translation>
    </message>
    <message>
        <source>toglie gli spazi in più; &quot;_&quot; diventa uno spazio</source>
        <translation>toglie gli spazi in più; &quot;_&quot; diventa uno spazio</translation>
    </message>
    <message>
        <source>i dati da un elenco, per nome del file</source>
        <translation>i dati da un elenco, per nome del file</translation>
    </message>
    <message>
        <source>i nomi dei file dai dati, per esempio %artist - %title</source>
        <translation>i nomi dei file dai dati, per esempio %artist - %title</translation>
    </message>
    <message>
        <source>con --rename: solo nomi che il player può mostrare</source>
        <translation>con --rename: solo nomi che il player può mostrare</translation>
    </message>
    <message>
        <source>scrive; altrimenti mostra soltanto</source>
        <translation>scrive; altrimenti mostra soltanto</translation>
    </message>
    <message>
        <source>scrive ciò che altrimenti viene solo mostrato</source>
        <translation>scrive ciò che altrimenti viene solo mostrato</translation>
    </message>
    <message>
        <source>sostituisce i file, o le voci, che ci sono già</source>
        <translation>sostituisce i file, o le voci, che ci sono già</translation>
    </message>
    <message>
        <source>il file WAV da scrivere</source>
        <translation>il file WAV da scrivere</translation>
    </message>
    <message>
        <source>il sound font per le song MIDI; altrimenti uno installato</source>
        <translation>il sound font per le song MIDI; altrimenti uno installato</translation>
    </message>
</context>
<context>
    <name>IndexCommand</name>
    <message>
        <source>%1: la memoria non è in ordine</source>
        <translation>%1: la memoria non è in ordine</translation>
    </message>
    <message>
        <source>Aggiornamento database</source>
        <translation>Aggiornamento database</translation>
    </message>
    <message>
        <source>Nessuna song nella memoria</source>
        <translation>Nessuna song nella memoria</translation>
    </message>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima di usarla</source>
        <translation>La memoria non ha un database completo: aggiornarlo prima di usarla</translation>
    </message>
    <message>
        <source>La cartella non è in una memoria collegata e non ha un database (%1: la prende comunque)</source>
        <translation>La cartella non è in una memoria collegata e non ha un database (%1: la prende comunque)</translation>
    </message>
</context>
<context>
    <name>ListCommand</name>
    <message>
        <source>Il database della memoria è danneggiato</source>
        <translation>Il database della memoria è danneggiato</translation>
    </message>
    <message>
        <source>Lettura della memoria</source>
        <translation>Lettura della memoria</translation>
    </message>
    <message>
        <source>La memoria non è leggibile</source>
        <translation>La memoria non è leggibile</translation>
    </message>
    <message>
        <source>La cartella non è leggibile</source>
        <translation>La cartella non è leggibile</translation>
    </message>
    <message>
        <source>Il file non è leggibile</source>
        <translation>Il file non è leggibile</translation>
    </message>
</context>
<context>
    <name>MemoryCheck</name>
    <message>
        <source>%1 byte non sono un numero intero di record</source>
        <translation>%1 byte non sono un numero intero di record</translation>
    </message>
    <message>
        <source>Il file manca o non è leggibile: la memoria non ha un database completo</source>
        <translation>Il file manca o non è leggibile: la memoria non ha un database completo</translation>
    </message>
    <message>
        <source>Troppe song: %1</source>
        <translation>Troppe song: %1</translation>
    </message>
    <message>
        <source>Il record %1 di %2 ha un numero di song sbagliato: %3</source>
        <translation>Il record %1 di %2 ha un numero di song sbagliato: %3</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non finisce con zeri</source>
        <translation>Il record %1 di %2 non finisce con zeri</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non è un percorso della memoria</source>
        <translation>Il record %1 di %2 non è un percorso della memoria</translation>
    </message>
    <message>
        <source>La song è elencata due volte</source>
        <translation>La song è elencata due volte</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non ha una data</source>
        <translation>Il record %1 di %2 non ha una data</translation>
    </message>
    <message>
        <source>Il file non c&apos;è</source>
        <translation>Il file non c&apos;è</translation>
    </message>
    <message>
        <source>Il file è stato modificato dopo l&apos;aggiornamento</source>
        <translation>Il file è stato modificato dopo l&apos;aggiornamento</translation>
    </message>
    <message>
        <source>La song non è nel database</source>
        <translation>La song non è nel database</translation>
    </message>
    <message>
        <source>La dimensione non corrisponde al numero di song</source>
        <translation>La dimensione non corrisponde al numero di song</translation>
    </message>
    <message>
        <source>Non elenca ogni song una volta</source>
        <translation>Non elenca ogni song una volta</translation>
    </message>
    <message>
        <source>%1 è al posto sbagliato</source>
        <translation>%1 è al posto sbagliato</translation>
    </message>
    <message>
        <source>Il titolo del record %1 non finisce con zeri</source>
        <translation>Il titolo del record %1 non finisce con zeri</translation>
    </message>
    <message>
        <source>Il formato del record %1 non esiste</source>
        <translation>Il formato del record %1 non esiste</translation>
    </message>
    <message>
        <source>Il record %1, %2, è al posto sbagliato</source>
        <translation>Il record %1, %2, è al posto sbagliato</translation>
    </message>
    <message>
        <source>La song %1 del record %2 è elencata due volte o non ha un file</source>
        <translation>La song %1 del record %2 è elencata due volte o non ha un file</translation>
    </message>
    <message>
        <source>La song %1 è diversa che in %2</source>
        <translation>La song %1 è diversa che in %2</translation>
    </message>
    <message>
        <source>Song mancanti alla fine: %1</source>
        <translation>Song mancanti alla fine: %1</translation>
    </message>
    <message>
        <source>Song mancanti prima del gruppo %1: %2</source>
        <translation>Song mancanti prima del gruppo %1: %2</translation>
    </message>
    <message>
        <source>Il gruppo %1 conta male le song del gruppo precedente: %2 invece di %3</source>
        <translation>Il gruppo %1 conta male le song del gruppo precedente: %2 invece di %3</translation>
    </message>
    <message>
        <source>L&apos;inizio del gruppo nel record %1 è danneggiato</source>
        <translation>L&apos;inizio del gruppo nel record %1 è danneggiato</translation>
    </message>
    <message>
        <source>Il gruppo %1 c&apos;è due volte</source>
        <translation>Il gruppo %1 c&apos;è due volte</translation>
    </message>
    <message>
        <source>Il record %1 è una song in più di quelle del suo gruppo</source>
        <translation>Il record %1 è una song in più di quelle del suo gruppo</translation>
    </message>
    <message>
        <source>La song %1 del record %2 è elencata due volte o è diversa che in %3</source>
        <translation>La song %1 del record %2 è elencata due volte o è diversa che in %3</translation>
    </message>
    <message>
        <source>La song %1 è in un altro gruppo che in %2</source>
        <translation>La song %1 è in un altro gruppo che in %2</translation>
    </message>
    <message>
        <source>%1 byte invece di %2</source>
        <translation>%1 byte invece di %2</translation>
    </message>
    <message>
        <source>L&apos;iniziale %1 porta al posto sbagliato</source>
        <translation>L&apos;iniziale %1 porta al posto sbagliato</translation>
    </message>
    <message>
        <source>I numeri di song, interpreti e generi non sono quelli degli elenchi</source>
        <translation>I numeri di song, interpreti e generi non sono quelli degli elenchi</translation>
    </message>
    <message>
        <source>La song %1 della playlist non è nella memoria</source>
        <translation>La song %1 della playlist non è nella memoria</translation>
    </message>
    <message>
        <source>La cartella non può essere letta</source>
        <translation>La cartella non può essere letta</translation>
    </message>
    <message>
        <source>Il nome non è in UTF-8</source>
        <translation>Il nome non è in UTF-8</translation>
    </message>
    <message>
        <source>Il percorso supera %1 caratteri</source>
        <translation>Il percorso supera %1 caratteri</translation>
    </message>
    <message>
        <source>Il database non mostra ciò che il file dice</source>
        <translation>Il database non mostra ciò che il file dice</translation>
    </message>
    <message>
        <source>Il file della playlist manca o non è leggibile</source>
        <translation>Il file della playlist manca o non è leggibile</translation>
    </message>
    <message>
        <source>La song non è nel database: il nome differisce da un altro solo per le maiuscole</source>
        <translation>La song non è nel database: il nome differisce da un altro solo per le maiuscole</translation>
    </message>
</context>
<context>
    <name>PeopleWriter</name>
    <message>
        <source>Formato</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Firma</source>
        <translation>Firma</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>sì</translation>
    </message>
    <message>
        <source>no</source>
        <translation>no</translation>
    </message>
    <message>
        <source>%1: non è nel catalogo</source>
        <translation>%1: non è nel catalogo</translation>
    </message>
    <message>
        <source>%1: nessuna modifica</source>
        <translation>%1: nessuna modifica</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Da copiare: %1; liberi: %2; song nella memoria dopo: %3</source>
        <translation>Da copiare: %1; liberi: %2; song nella memoria dopo: %3</translation>
    </message>
    <message>
        <source>nuova</source>
        <translation>nuova</translation>
    </message>
    <message>
        <source>già presente</source>
        <translation>già presente</translation>
    </message>
    <message>
        <source>diversa</source>
        <translation>diversa</translation>
    </message>
    <message>
        <source>già presente con un altro nome</source>
        <translation>già presente con un altro nome</translation>
    </message>
    <message>
        <source>stesso nome di un&apos;altra song</source>
        <translation>stesso nome di un&apos;altra song</translation>
    </message>
    <message>
        <source>illeggibile</source>
        <translation>illeggibile</translation>
    </message>
    <message>
        <source>nome non possibile sulla memoria</source>
        <translation>nome non possibile sulla memoria</translation>
    </message>
    <message>
        <source>non è nell&apos;elenco</source>
        <translation>non è nell&apos;elenco</translation>
    </message>
    <message>
        <source>Gli stessi byte:</source>
        <translation>Gli stessi byte:</translation>
    </message>
    <message>
        <source>Stesso titolo e interprete:</source>
        <translation>Stesso titolo e interprete:</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, annullato</source>
        <translation>%1, annullato</translation>
    </message>
    <message>
        <source>Catalogo</source>
        <translation>Catalogo</translation>
    </message>
    <message>
        <source>%1 (stimata)</source>
        <translation>%1 (stimata)</translation>
    </message>
    <message>
        <source>Scritti</source>
        <translation>Scritti</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>aiuto: kavena %1--help</source>
        <translation>aiuto: kavena %1--help</translation>
    </message>
    <message>
        <source>Non tutti i dati hanno potuto essere scritti sullo standard output</source>
        <translation>Non tutti i dati hanno potuto essere scritti sullo standard output</translation>
    </message>
</context>
<context>
    <name>SetCommand</name>
    <message>
        <source>Modifica</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>%1: %2 accorciato a %3 caratteri: %4</source>
        <translation>%1: %2 accorciato a %3 caratteri: %4</translation>
    </message>
</context>
<context>
    <name>ShowCommand</name>
    <message>
        <source>Lettura</source>
        <translation>Lettura</translation>
    </message>
</context>
<context>
    <name>SongPaths</name>
    <message>
        <source>L&apos;elenco non può essere letto</source>
        <translation>L&apos;elenco non può essere letto</translation>
    </message>
    <message>
        <source>La cartella non può essere letta</source>
        <translation>La cartella non può essere letta</translation>
    </message>
    <message>
        <source>Il nome non è in UTF-8 e il file non può essere aperto</source>
        <translation>Il nome non è in UTF-8 e il file non può essere aperto</translation>
    </message>
    <message>
        <source>Un nome è vuoto</source>
        <translation>Un nome è vuoto</translation>
    </message>
</context>
<context>
    <name>SyncCommand</name>
    <message>
        <source>Il catalogo non può essere aperto</source>
        <translation>Il catalogo non può essere aperto</translation>
    </message>
    <message>
        <source>Sincronizzazione</source>
        <translation>Sincronizzazione</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>La song non ha la firma del produttore. Modificarla?</source>
        <translation>La song non ha la firma del produttore. Modificarla?</translation>
    </message>
    <message>
        <source>%1: non modificata, senza la firma del produttore</source>
        <translation>%1: non modificata, senza la firma del produttore</translation>
    </message>
    <message>
        <source>%1: senza la firma del produttore, viene modificata solo se la risposta è sì (%2)</source>
        <translation>%1: senza la firma del produttore, viene modificata solo se la risposta è sì (%2)</translation>
    </message>
</context>
<context>
    <name>Terminal</name>
    <message>
        <source>Interrotto</source>
        <translation>Interrotto</translation>
    </message>
    <message>
        <source>Senza terminale la risposta è no: %1</source>
        <translation>Senza terminale la risposta è no: %1</translation>
    </message>
    <message>
        <source>Senza terminale la risposta è no (%1 yes la cambia): %2</source>
        <translation>Senza terminale la risposta è no (%1 yes la cambia): %2</translation>
    </message>
    <message>
        <source>s</source>
        <translation>s</translation>
    </message>
    <message>
        <source>n</source>
        <translation>n</translation>
    </message>
    <message>
        <source>[%1 = sì, %2 = sì a tutti, %3 = no, %4 = no a tutti]</source>
        <translation>[%1 = sì, %2 = sì a tutti, %3 = no, %4 = no a tutti]</translation>
    </message>
</context>
<context>
    <name>PlanExecution</name>
    <message>
        <source>nel frattempo un altro file ha questo nome</source>
        <translation>nel frattempo un altro file ha questo nome</translation>
    </message>
    <message>
        <source>la sua cartella è un collegamento che porta fuori dalla memoria</source>
        <translation>la sua cartella è un collegamento che porta fuori dalla memoria</translation>
    </message>
    <message>
        <source>restano le immagini della song che è stata sostituita</source>
        <translation>restano le immagini della song che è stata sostituita</translation>
    </message>
    <message>
        <source>non è più sulla memoria</source>
        <translation>non è più sulla memoria</translation>
    </message>
    <message>
        <source>esisteva già e non è stata sostituita</source>
        <translation>esisteva già e non è stata sostituita</translation>
    </message>
    <message>
        <source>un&apos;altra song dell&apos;elenco ha lo stesso nome</source>
        <translation>un&apos;altra song dell&apos;elenco ha lo stesso nome</translation>
    </message>
    <message>
        <source>è già nella memoria</source>
        <translation>è già nella memoria</translation>
    </message>
    <message>
        <source>è già nella memoria come %1</source>
        <translation>è già nella memoria come %1</translation>
    </message>
    <message>
        <source>un&apos;altra song dell&apos;elenco ha preso il suo posto</source>
        <translation>un&apos;altra song dell&apos;elenco ha preso il suo posto</translation>
    </message>
    <message>
        <source>saltata come scelto nel piano</source>
        <translation>saltata come scelto nel piano</translation>
    </message>
    <message>
        <source>non rimossa, la copia è stata interrotta</source>
        <translation>non rimossa, la copia è stata interrotta</translation>
    </message>
    <message>
        <source>non rimossa, non tutte le song sono state copiate</source>
        <translation>non rimossa, non tutte le song sono state copiate</translation>
    </message>
    <message>
        <source>non rimossa, il database della memoria non può essere aggiornato</source>
        <translation>non rimossa, il database della memoria non può essere aggiornato</translation>
    </message>
</context>
<context>
    <name>PlannedRemoval</name>
    <message>
        <source>non è più il file di prima</source>
        <translation>non è più il file di prima</translation>
    </message>
    <message>
        <source>non rimossa, la rimozione è stata interrotta</source>
        <translation>non rimossa, la rimozione è stata interrotta</translation>
    </message>
</context>
<context>
    <name>TransferCommand</name>
    <message>
        <source>Song con il nome di un&apos;altra song indicata: %1. Con %2 ognuna ha un nome suo.</source>
        <translation>Song con il nome di un&apos;altra song indicata: %1. Con %2 ognuna ha un nome suo.</translation>
    </message>
    <message>
        <source>Song già nella memoria con un nome accorciato, che non vengono copiate di nuovo: %1</source>
        <translation>Song già nella memoria con un nome accorciato, che non vengono copiate di nuovo: %1</translation>
    </message>
    <message>
        <source>Song della memoria che non sono nell&apos;elenco: %1</source>
        <translation>Song della memoria che non sono nell&apos;elenco: %1</translation>
    </message>
    <message>
        <source>Restano; %1 le rimuove.</source>
        <translation>Restano; %1 le rimuove.</translation>
    </message>
    <message>
        <source>Nessuna song viene rimossa, perché l&apos;elenco non è completo.</source>
        <translation>Nessuna song viene rimossa, perché l&apos;elenco non è completo.</translation>
    </message>
    <message>
        <source>Rimuovere queste song dalla memoria?</source>
        <translation>Rimuovere queste song dalla memoria?</translation>
    </message>
    <message>
        <source>Sono più song di quante il player ne può trovare: %1. Si vuole procedere comunque?</source>
        <translation>Sono più song di quante il player ne può trovare: %1. Si vuole procedere comunque?</translation>
    </message>
    <message>
        <source>Non è una song e non viene copiato</source>
        <translation>Non è una song e non viene copiato</translation>
    </message>
</context>
<context>
    <name>TransferPlanner</name>
    <message>
        <source>il file non può essere letto</source>
        <translation>il file non può essere letto</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>il file non c&apos;è più</translation>
    </message>
    <message>
        <source>è la stessa song, scelta due volte</source>
        <translation>è la stessa song, scelta due volte</translation>
    </message>
    <message>
        <source>per i nomi che iniziano così il player non ha più nomi brevi</source>
        <translation>per i nomi che iniziano così il player non ha più nomi brevi</translation>
    </message>
    <message>
        <source>nella memoria ci sono altre immagini karaoke con il suo nome</source>
        <translation>nella memoria ci sono altre immagini karaoke con il suo nome</translation>
    </message>
    <message>
        <source>il percorso è troppo lungo per il player</source>
        <translation>il percorso è troppo lungo per il player</translation>
    </message>
</context>
<context>
    <name>CopiesFromMemory</name>
    <message>
        <source>La cartella non esiste.</source>
        <translation>La cartella non esiste.</translation>
    </message>
    <message>
        <source>La cartella è nella memoria stessa: sceglierne una del computer.</source>
        <translation>La cartella è nella memoria stessa: sceglierne una del computer.</translation>
    </message>
    <message>
        <source>un&apos;altra song scelta ha lo stesso nome</source>
        <translation>un&apos;altra song scelta ha lo stesso nome</translation>
    </message>
</context>
<context>
    <name>Eject</name>
    <message>
        <source>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</source>
        <translation>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</translation>
    </message>
    <message>
        <source>Non tutti i dati sono arrivati sulla memoria. Non scollegarla.</source>
        <translation>Non tutti i dati sono arrivati sulla memoria. Non scollegarla.</translation>
    </message>
    <message>
        <source>Adesso la memoria si può scollegare.</source>
        <translation>Adesso la memoria si può scollegare.</translation>
    </message>
    <message>
        <source>Il servizio del sistema che espelle le memorie (UDisks2) non risponde. Espellere la memoria dal file manager.</source>
        <translation>Il servizio del sistema che espelle le memorie (UDisks2) non risponde. Espellere la memoria dal file manager.</translation>
    </message>
    <message>
        <source>Il sistema non conosce nessuna memoria collegata qui.</source>
        <translation>Il sistema non conosce nessuna memoria collegata qui.</translation>
    </message>
    <message>
        <source>Il sistema non permette di espellere la memoria.</source>
        <translation>Il sistema non permette di espellere la memoria.</translation>
    </message>
    <message>
        <source>La memoria è stata smontata, ma il suo lettore è ancora in uso: altre sue partizioni possono essere aperte.</source>
        <translation>La memoria è stata smontata, ma il suo lettore è ancora in uso: altre sue partizioni possono essere aperte.</translation>
    </message>
    <message>
        <source>La memoria è in uso: chiudere i programmi che la usano e riprovare.</source>
        <translation>La memoria è in uso: chiudere i programmi che la usano e riprovare.</translation>
    </message>
    <message>
        <source>La memoria è in uso da: %1. Chiudere questi programmi e riprovare.</source>
        <translation>La memoria è in uso da: %1. Chiudere questi programmi e riprovare.</translation>
    </message>
    <message>
        <source>Non è stato possibile espellere la memoria.</source>
        <translation>Non è stato possibile espellere la memoria.</translation>
    </message>
</context>
<context>
    <name>RemoveCommand</name>
    <message numerus="yes">
        <source>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</source>
        <translation>
            <numerusform>%n song verrà eliminata dalla memoria con le sue immagini karaoke. Procedere?</numerusform>
            <numerusform>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</numerusform>
        </translation>
    </message>
    <message>
        <source>La cartella è dentro una memoria: indicare la memoria, %1</source>
        <translation>La cartella è dentro una memoria: indicare la memoria, %1</translation>
    </message>
</context>
<context>
    <name>SongChanges</name>
    <message>
        <source>Eliminazione</source>
        <translation>Eliminazione</translation>
    </message>
    <message>
        <source>Eliminazione song...</source>
        <translation>Eliminazione song...</translation>
    </message>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima</source>
        <translation>La memoria non ha un database completo: aggiornarlo prima</translation>
    </message>
    <message>
        <source>il suo ultimo salvataggio non è stato completato</source>
        <translation>il suo ultimo salvataggio non è stato completato</translation>
    </message>
    <message>
        <source>non è stato possibile rinominarla</source>
        <translation>non è stato possibile rinominarla</translation>
    </message>
    <message>
        <source>la memoria non ha confermato il nuovo nome</source>
        <translation>la memoria non ha confermato il nuovo nome</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Aggiornamento</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Aggiornamento database...</translation>
    </message>
    <message>
        <source>Il database della memoria è danneggiato, o la memoria non si può scrivere. Non è stato cambiato nulla.</source>
        <translation>Il database della memoria è danneggiato, o la memoria non si può scrivere. Non è stato cambiato nulla.</translation>
    </message>
    <message>
        <source>Salvataggio</source>
        <translation>Salvataggio</translation>
    </message>
    <message>
        <source>Salvataggio song...</source>
        <translation>Salvataggio song...</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>La memoria non è più collegata.</translation>
    </message>
    <message>
        <source>Il database della memoria è danneggiato: rigenerarlo.</source>
        <translation>Il database della memoria è danneggiato: rigenerarlo.</translation>
    </message>
    <message>
        <source>Nella memoria non ci sono song.</source>
        <translation>Nella memoria non ci sono song.</translation>
    </message>
    <message>
        <source>Non è stato possibile aggiornare il database. Assicurarsi che la memoria abbia spazio libero e che non sia protetta da scrittura.</source>
        <translation>Non è stato possibile aggiornare il database. Assicurarsi che la memoria abbia spazio libero e che non sia protetta da scrittura.</translation>
    </message>
</context>
<context>
    <name>SongName</name>
    <message>
        <source>il nome deve finire con .%1</source>
        <translation>il nome deve finire con .%1</translation>
    </message>
    <message>
        <source>con la cartella il nome supera %1 caratteri</source>
        <translation>con la cartella il nome supera %1 caratteri</translation>
    </message>
    <message>
        <source>è il nome che ha già</source>
        <translation>è il nome che ha già</translation>
    </message>
    <message>
        <source>un altro file ha già questo nome</source>
        <translation>un altro file ha già questo nome</translation>
    </message>
    <message>
        <source>ci sono già immagini karaoke con questo nome</source>
        <translation>ci sono già immagini karaoke con questo nome</translation>
    </message>
    <message>
        <source>il nome è vuoto</source>
        <translation>il nome è vuoto</translation>
    </message>
    <message>
        <source>il nome supera %1 caratteri</source>
        <translation>il nome supera %1 caratteri</translation>
    </message>
    <message>
        <source>questi caratteri non sono permessi: %1</source>
        <translation>questi caratteri non sono permessi: %1</translation>
    </message>
    <message>
        <source>il player non ha uno dei caratteri</source>
        <translation>il player non ha uno dei caratteri</translation>
    </message>
    <message>
        <source>il nome non può iniziare o finire con un punto o uno spazio</source>
        <translation>il nome non può iniziare o finire con un punto o uno spazio</translation>
    </message>
    <message>
        <source>questo nome è riservato dai computer</source>
        <translation>questo nome è riservato dai computer</translation>
    </message>
</context>
<context>
    <name>SongRemoval</name>
    <message>
        <source>non è una song della memoria</source>
        <translation>non è una song della memoria</translation>
    </message>
    <message>
        <source>è in una cartella riservata</source>
        <translation>è in una cartella riservata</translation>
    </message>
    <message>
        <source>ci porta un collegamento: potrebbe trovarsi fuori dalla memoria</source>
        <translation>ci porta un collegamento: potrebbe trovarsi fuori dalla memoria</translation>
    </message>
    <message>
        <source>il file non c&apos;è</source>
        <translation>il file non c&apos;è</translation>
    </message>
    <message>
        <source>non è stato possibile eliminarla</source>
        <translation>non è stato possibile eliminarla</translation>
    </message>
    <message>
        <source>la song è stata eliminata, ma non le sue immagini: %1</source>
        <translation>la song è stata eliminata, ma non le sue immagini: %1</translation>
    </message>
    <message>
        <source>la memoria non ha confermato l&apos;eliminazione</source>
        <translation>la memoria non ha confermato l&apos;eliminazione</translation>
    </message>
</context>
<context>
    <name>PlannedName</name>
    <message>
        <source>un&apos;altra song del piano ha questo nome</source>
        <translation>un&apos;altra song del piano ha questo nome</translation>
    </message>
</context>
<context>
    <name>TransferPlanModel</name>
    <message>
        <source>Diverso per ogni song</source>
        <translation>Diverso per ogni song</translation>
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
        <translation>Che cosa succede</translation>
    </message>
    <message>
        <source>Nella memoria</source>
        <translation>Nella memoria</translation>
    </message>
    <message>
        <source>Spazio</source>
        <translation>Spazio</translation>
    </message>
    <message>
        <source>Niente da fare</source>
        <translation>Niente da fare</translation>
    </message>
    <message>
        <source>Resta</source>
        <translation>Resta</translation>
    </message>
    <message>
        <source>Salta</source>
        <translation>Salta</translation>
    </message>
    <message>
        <source>Copia</source>
        <translation>Copia</translation>
    </message>
    <message>
        <source>Copia con un nome nuovo</source>
        <translation>Copia con un nome nuovo</translation>
    </message>
    <message>
        <source>Tieni entrambe (nome nuovo)</source>
        <translation>Tieni entrambe (nome nuovo)</translation>
    </message>
    <message>
        <source>Sostituisci</source>
        <translation>Sostituisci</translation>
    </message>
    <message>
        <source>Copia in una sottocartella</source>
        <translation>Copia in una sottocartella</translation>
    </message>
    <message>
        <source>Rimuovi dalla memoria</source>
        <translation>Rimuovi dalla memoria</translation>
    </message>
    <message>
        <source>Nuove</source>
        <translation>Nuove</translation>
    </message>
    <message>
        <source>Già presenti</source>
        <translation>Già presenti</translation>
    </message>
    <message>
        <source>Presenti, ma diverse</source>
        <translation>Presenti, ma diverse</translation>
    </message>
    <message>
        <source>Presenti con un nome accorciato</source>
        <translation>Presenti con un nome accorciato</translation>
    </message>
    <message>
        <source>Nome già usato da un&apos;altra song dell&apos;elenco</source>
        <translation>Nome già usato da un&apos;altra song dell&apos;elenco</translation>
    </message>
    <message>
        <source>Non leggibili</source>
        <translation>Non leggibili</translation>
    </message>
    <message>
        <source>Nome non adatto alla memoria o al player</source>
        <translation>Nome non adatto alla memoria o al player</translation>
    </message>
    <message>
        <source>Nella memoria, ma non nell&apos;elenco</source>
        <translation>Nella memoria, ma non nell&apos;elenco</translation>
    </message>
</context>
<context>
    <name>RemedyPanel</name>
    <message>
        <source>&amp;Che cosa fare:</source>
        <translation>&amp;Che cosa fare:</translation>
    </message>
    <message>
        <source>Diverso per ogni song</source>
        <translation>Diverso per ogni song</translation>
    </message>
    <message>
        <source>&amp;Nome:</source>
        <translation>&amp;Nome:</translation>
    </message>
    <message>
        <source>Seleziona nell&apos;elenco le song di cui vuoi decidere.</source>
        <translation>Seleziona nell&apos;elenco le song di cui vuoi decidere.</translation>
    </message>
    <message>
        <source>Song selezionate: %1</source>
        <translation>Song selezionate: %1</translation>
    </message>
</context>
<context>
    <name>TransferPlanDialog</name>
    <message>
        <source>Piano di trasferimento</source>
        <translation>Piano di trasferimento</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>Cartella:</translation>
    </message>
    <message>
        <source>&amp;Allinea: elenca anche le song della memoria da poter rimuovere</source>
        <translation>&amp;Allinea: elenca anche le song della memoria da poter rimuovere</translation>
    </message>
    <message>
        <source>Elenca le song della cartella che non sono tra quelle scelte. Vengono rimosse solo quelle che spunti.</source>
        <translation>Elenca le song della cartella che non sono tra quelle scelte. Vengono rimosse solo quelle che spunti.</translation>
    </message>
    <message>
        <source>&amp;Rileggi e confronta ogni file copiato</source>
        <translation>&amp;Rileggi e confronta ogni file copiato</translation>
    </message>
    <message>
        <source>Vale anche per i prossimi trasferimenti. La copia dura di più.</source>
        <translation>Vale anche per i prossimi trasferimenti. La copia dura di più.</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Copia &amp;senza piano</source>
        <translation>Copia &amp;senza piano</translation>
    </message>
    <message>
        <source>Copia ogni song con il suo nome e chiede prima di sostituirne una.</source>
        <translation>Copia ogni song con il suo nome e chiede prima di sostituirne una.</translation>
    </message>
    <message>
        <source>&amp;Esegui</source>
        <translation>&amp;Esegui</translation>
    </message>
    <message>
        <source>Ecco che cosa succederebbe alle song scelte.</source>
        <translation>Ecco che cosa succederebbe alle song scelte.</translation>
    </message>
    <message>
        <source>Alcune song hanno lo stesso nome: nella memoria ne resterebbe una sola.</source>
        <translation>Alcune song hanno lo stesso nome: nella memoria ne resterebbe una sola.</translation>
    </message>
    <message>
        <source>Alcune song sono già nella memoria con un nome accorciato: ci sarebbero due volte.</source>
        <translation>Alcune song sono già nella memoria con un nome accorciato: ci sarebbero due volte.</translation>
    </message>
    <message>
        <source>Lo spazio libero nella memoria non basta per tutte le song.</source>
        <translation>Lo spazio libero nella memoria non basta per tutte le song.</translation>
    </message>
    <message>
        <source>Il player non può trovare così tante song.</source>
        <translation>Il player non può trovare così tante song.</translation>
    </message>
    <message>
        <source>Non è stato ancora copiato niente.</source>
        <translation>Non è stato ancora copiato niente.</translation>
    </message>
    <message>
        <source>Servono %1. Lo spazio libero non è noto.</source>
        <translation>Servono %1. Lo spazio libero non è noto.</translation>
    </message>
    <message>
        <source>Occupati: %1 di %2. Servono: %3. Liberi: %4.</source>
        <translation>Occupati: %1 di %2. Servono: %3. Liberi: %4.</translation>
    </message>
    <message>
        <source>Song aggiunte: %1. Sostituite: %2. Rimosse: %3. Song nella memoria dopo il trasferimento: %4.</source>
        <translation>Song aggiunte: %1. Sostituite: %2. Rimosse: %3. Song nella memoria dopo il trasferimento: %4.</translation>
    </message>
    <message>
        <source>Niente da copiare né da rimuovere: «Esegui» aggiorna soltanto il database della memoria.</source>
        <translation>Niente da copiare né da rimuovere: «Esegui» aggiorna soltanto il database della memoria.</translation>
    </message>
    <message>
        <source>Song scelte che non vengono copiate: %1</source>
        <translation>Song scelte che non vengono copiate: %1</translation>
    </message>
    <message>
        <source>La song non può avere questo nome: %1</source>
        <translation>La song non può avere questo nome: %1</translation>
    </message>
    <message>
        <source>Lo spazio libero non basta: mancano %1. Decidi quali song saltare.</source>
        <translation>Lo spazio libero non basta: mancano %1. Decidi quali song saltare.</translation>
    </message>
    <message>
        <source>Song da rimuovere dalla memoria: %1
Vengono cancellate per sempre, con le loro immagini karaoke. Rimuoverle?</source>
        <translation>Song da rimuovere dalla memoria: %1
Vengono cancellate per sempre, con le loro immagini karaoke. Rimuoverle?</translation>
    </message>
    <message>
        <source>Troppe song per il player: %1, il massimo è %2. Decidi quali song saltare.</source>
        <translation>Troppe song per il player: %1, il massimo è %2. Decidi quali song saltare.</translation>
    </message>
    <message>
        <source>Nella cartella non ci sono altre song.</source>
        <translation>Nella cartella non ci sono altre song.</translation>
    </message>
</context>
<context>
    <name>Memories</name>
    <message>
        <source>Memoria</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Espulsione della memoria...</source>
        <translation>Espulsione della memoria...</translation>
    </message>
</context>
<context>
    <name>MemoryCare</name>
    <message>
        <source>Lettura della memoria...</source>
        <translation>Lettura della memoria...</translation>
    </message>
    <message>
        <source>La lettura è stata interrotta.</source>
        <translation>La lettura è stata interrotta.</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>La memoria non è più collegata.</translation>
    </message>
    <message>
        <source>Confronto dei file...</source>
        <translation>Confronto dei file...</translation>
    </message>
    <message>
        <source>Il confronto è stato interrotto.</source>
        <translation>Il confronto è stato interrotto.</translation>
    </message>
    <message numerus="yes">
        <source>%n gruppi di file uguali</source>
        <translation>
            <numerusform>%n gruppo di file uguali</numerusform>
            <numerusform>%n gruppi di file uguali</numerusform>
        </translation>
    </message>
    <message>
        <source>Controllo della memoria...</source>
        <translation>Controllo della memoria...</translation>
    </message>
    <message>
        <source>Il database è aggiornato.</source>
        <translation>Il database è aggiornato.</translation>
    </message>
    <message>
        <source>Il database viene creato da capo: può durare alcuni minuti. Le playlist conservano le loro song. Procedere?</source>
        <translation>Il database viene creato da capo: può durare alcuni minuti. Le playlist conservano le loro song. Procedere?</translation>
    </message>
    <message>
        <source>Il database è stato rigenerato.</source>
        <translation>Il database è stato rigenerato.</translation>
    </message>
    <message>
        <source>Le song perdute tornano nelle playlist, dove l&apos;ultimo aggiornamento ha annotato quali erano. Il resto delle playlist non cambia. Procedere?</source>
        <translation>Le song perdute tornano nelle playlist, dove l&apos;ultimo aggiornamento ha annotato quali erano. Il resto delle playlist non cambia. Procedere?</translation>
    </message>
    <message numerus="yes">
        <source>%n playlist non si possono leggere o scrivere.</source>
        <translation>
            <numerusform>%n playlist non si può leggere o scrivere.</numerusform>
            <numerusform>%n playlist non si possono leggere o scrivere.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono di nuovo nelle playlist.</source>
        <translation>
            <numerusform>%n song è di nuovo nelle playlist.</numerusform>
            <numerusform>%n song sono di nuovo nelle playlist.</numerusform>
        </translation>
    </message>
    <message>
        <source>Espulsione della memoria...</source>
        <translation>Espulsione della memoria...</translation>
    </message>
    <message>
        <source>Memoria</source>
        <translation>Memoria</translation>
    </message>
    <message numerus="yes">
        <source>%n song non sono state cambiate.</source>
        <translation>
            <numerusform>%n song non è stata cambiata.</numerusform>
            <numerusform>%n song non sono state cambiate.</numerusform>
        </translation>
    </message>
    <message>
        <source>Il lavoro è stato interrotto: le altre song sono come prima.</source>
        <translation>Il lavoro è stato interrotto: le altre song sono come prima.</translation>
    </message>
    <message>
        <source>Il database della memoria non è stato aggiornato.</source>
        <translation>Il database della memoria non è stato aggiornato.</translation>
    </message>
    <message>
        <source>Il database non ha accettato tutte le song.</source>
        <translation>Il database non ha accettato tutte le song.</translation>
    </message>
    <message>
        <source>Il controllo è stato interrotto.</source>
        <translation>Il controllo è stato interrotto.</translation>
    </message>
</context>
<context>
    <name>MemoryCheckPage</name>
    <message numerus="yes">
        <source>e altri %n</source>
        <translation>
            <numerusform>e un altro (%n)</numerusform>
            <numerusform>e altri %n</numerusform>
        </translation>
    </message>
    <message>
        <source>Il controllo confronta database, playlist e file tra loro. Non cambia nulla.</source>
        <translation>Il controllo confronta database, playlist e file tra loro. Non cambia nulla.</translation>
    </message>
    <message>
        <source>La memoria è in ordine.</source>
        <translation>La memoria è in ordine.</translation>
    </message>
    <message>
        <source>La memoria non è in ordine. Accanto a ogni punto sta che cosa aiuta.</source>
        <translation>La memoria non è in ordine. Accanto a ogni punto sta che cosa aiuta.</translation>
    </message>
    <message>
        <source>Il player non trova nessuna song: il database non è completo</source>
        <translation>Il player non trova nessuna song: il database non è completo</translation>
    </message>
    <message>
        <source>Song che il player elenca, ma che non ci sono più</source>
        <translation>Song che il player elenca, ma che non ci sono più</translation>
    </message>
    <message>
        <source>Song modificate: il player ne mostra ancora i dati vecchi</source>
        <translation>Song modificate: il player ne mostra ancora i dati vecchi</translation>
    </message>
    <message>
        <source>Song che il player non trova ancora</source>
        <translation>Song che il player non trova ancora</translation>
    </message>
    <message>
        <source>Song perdute nelle playlist</source>
        <translation>Song perdute nelle playlist</translation>
    </message>
    <message>
        <source>Più song di quante il player ne conti</source>
        <translation>Più song di quante il player ne conti</translation>
    </message>
    <message>
        <source>Il player cerca in un ordine sbagliato</source>
        <translation>Il player cerca in un ordine sbagliato</translation>
    </message>
    <message>
        <source>Il database è danneggiato</source>
        <translation>Il database è danneggiato</translation>
    </message>
    <message>
        <source>eliminare song</source>
        <translation>eliminare song</translation>
    </message>
    <message>
        <source>Song di cui il player mostra dati che nel file non ci sono</source>
        <translation>Song di cui il player mostra dati che nel file non ci sono</translation>
    </message>
    <message>
        <source>Song che con le loro cartelle hanno un nome troppo lungo per il player</source>
        <translation>Song che con le loro cartelle hanno un nome troppo lungo per il player</translation>
    </message>
    <message>
        <source>Cartelle che non si possono leggere</source>
        <translation>Cartelle che non si possono leggere</translation>
    </message>
    <message>
        <source>Nomi con caratteri che non si possono leggere</source>
        <translation>Nomi con caratteri che non si possono leggere</translation>
    </message>
    <message>
        <source>dare un altro nome nel file manager</source>
        <translation>dare un altro nome nel file manager</translation>
    </message>
    <message>
        <source>controllare la memoria con gli strumenti del sistema</source>
        <translation>controllare la memoria con gli strumenti del sistema</translation>
    </message>
    <message>
        <source>Playlist che il player elenca, ma che non può leggere</source>
        <translation>Playlist che il player elenca, ma che non può leggere</translation>
    </message>
    <message>
        <source>eliminare la playlist sul player</source>
        <translation>eliminare la playlist sul player</translation>
    </message>
</context>
<context>
    <name>MemoryContents</name>
    <message>
        <source>La memoria non è collegata.</source>
        <translation>La memoria non è collegata.</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>La memoria non è più collegata.</translation>
    </message>
    <message>
        <source>Questa cartella non è su una memoria e non ha un database: qui non si cambia nulla.</source>
        <translation>Questa cartella non è su una memoria e non ha un database: qui non si cambia nulla.</translation>
    </message>
    <message>
        <source>Il database è danneggiato: rigenerarlo nella scheda &quot;Controllo&quot; prima di cambiare le song.</source>
        <translation>Il database è danneggiato: rigenerarlo nella scheda &quot;Controllo&quot; prima di cambiare le song.</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura.</source>
        <translation>La memoria è protetta da scrittura.</translation>
    </message>
</context>
<context>
    <name>MemoryDuplicatesPage</name>
    <message>
        <source>Lo stesso file</source>
        <translation>Lo stesso file</translation>
    </message>
    <message>
        <source>Stesso titolo e artista</source>
        <translation>Stesso titolo e artista</translation>
    </message>
    <message>
        <source>Nessuna song è doppia.</source>
        <translation>Nessuna song è doppia.</translation>
    </message>
    <message>
        <source>Nessuna song ha lo stesso titolo e artista di un&apos;altra.</source>
        <translation>Nessuna song ha lo stesso titolo e artista di un&apos;altra.</translation>
    </message>
    <message>
        <source>Scegliere con la spunta le song da eliminare. Stesso titolo e artista possono essere due versioni: controllare prima.</source>
        <translation>Scegliere con la spunta le song da eliminare. Stesso titolo e artista possono essere due versioni: controllare prima.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; trova anche i file uguali con nomi e titoli diversi.</source>
        <translation>&quot;%1&quot; trova anche i file uguali con nomi e titoli diversi.</translation>
    </message>
</context>
<context>
    <name>MemoryPlaylistsPage</name>
    <message>
        <source>Nella memoria non ci sono playlist.</source>
        <translation>Nella memoria non ci sono playlist.</translation>
    </message>
    <message>
        <source>Le playlist si cambiano sul player. Una song perduta è una che il player non trova più.</source>
        <translation>Le playlist si cambiano sul player. Una song perduta è una che il player non trova più.</translation>
    </message>
    <message>
        <source>Playlist %1 – non si può leggere</source>
        <translation>Playlist %1 – non si può leggere</translation>
    </message>
    <message numerus="yes">
        <source>Playlist %1 – %n song</source>
        <translation>
            <numerusform>Playlist %1 – %n song</numerusform>
            <numerusform>Playlist %1 – %n song</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n perdute</source>
        <translation>
            <numerusform>%n perduta</numerusform>
            <numerusform>%n perdute</numerusform>
        </translation>
    </message>
    <message>
        <source>(song perduta)</source>
        <translation>(song perduta)</translation>
    </message>
</context>
<context>
    <name>MemorySongWork</name>
    <message>
        <source>Memoria</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Di queste song non c&apos;è più il file. &quot;Aggiorna&quot; nella scheda &quot;Controllo&quot; le toglie dal database.</source>
        <translation>Di queste song non c&apos;è più il file. &quot;Aggiorna&quot; nella scheda &quot;Controllo&quot; le toglie dal database.</translation>
    </message>
    <message>
        <source>Queste song sono in cartelle che non si possono leggere: controllare la memoria con gli strumenti del sistema.</source>
        <translation>Queste song sono in cartelle che non si possono leggere: controllare la memoria con gli strumenti del sistema.</translation>
    </message>
    <message>
        <source>un altro programma l&apos;ha cambiata: rileggere la memoria</source>
        <translation>un altro programma l&apos;ha cambiata: rileggere la memoria</translation>
    </message>
    <message numerus="yes">
        <source>%n song eliminate dalla memoria.</source>
        <translation>
            <numerusform>%n song eliminata dalla memoria.</numerusform>
            <numerusform>%n song eliminate dalla memoria.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>e altre %n</source>
        <translation>
            <numerusform>e un&apos;altra (%n)</numerusform>
            <numerusform>e altre %n</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Attenzione: di %n gruppi non rimane nessuna song!</source>
        <translation>
            <numerusform>Attenzione: di %n gruppo non rimane nessuna song!</numerusform>
            <numerusform>Attenzione: di %n gruppi non rimane nessuna song!</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</source>
        <translation>
            <numerusform>%n song verrà eliminata dalla memoria con le sue immagini karaoke. Procedere?</numerusform>
            <numerusform>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</numerusform>
        </translation>
    </message>
    <message>
        <source>La song si chiama ora %1.</source>
        <translation>La song si chiama ora %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n song salvate.</source>
        <translation>
            <numerusform>%n song salvata.</numerusform>
            <numerusform>%n song salvate.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Scegli cartella</translation>
    </message>
    <message>
        <source>Copia song...</source>
        <translation>Copia song...</translation>
    </message>
    <message numerus="yes">
        <source>%n song copiate sul computer.</source>
        <translation>
            <numerusform>%n song copiata sul computer.</numerusform>
            <numerusform>%n song copiate sul computer.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n c&apos;erano già e restano.</source>
        <translation>
            <numerusform>%n c&apos;era già e resta.</numerusform>
            <numerusform>%n c&apos;erano già e restano.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song non sono state copiate.</source>
        <translation>
            <numerusform>%n song non è stata copiata.</numerusform>
            <numerusform>%n song non sono state copiate.</numerusform>
        </translation>
    </message>
    <message>
        <source>Non è stato possibile aprire la cartella %1.</source>
        <translation>Non è stato possibile aprire la cartella %1.</translation>
    </message>
    <message>
        <source>La copia è stata interrotta.</source>
        <translation>La copia è stata interrotta.</translation>
    </message>
</context>
<context>
    <name>MemorySongsModel</name>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artista</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Formato</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>Bpm</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>.cdg</source>
        <translation>.cdg</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Dimensione</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Stato</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Sì</source>
        <translation>Sì</translation>
    </message>
    <message>
        <source>non ancora nel database</source>
        <translation>non ancora nel database</translation>
    </message>
    <message>
        <source>modificata dopo l&apos;aggiornamento</source>
        <translation>modificata dopo l&apos;aggiornamento</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>il file non c&apos;è più</translation>
    </message>
    <message>
        <source>cartella non leggibile</source>
        <translation>cartella non leggibile</translation>
    </message>
    <message>
        <source>il player non legge il tag</source>
        <translation>il player non legge il tag</translation>
    </message>
    <message>
        <source>doppia</source>
        <translation>doppia</translation>
    </message>
    <message>
        <source>nel database</source>
        <translation>nel database</translation>
    </message>
</context>
<context>
    <name>MemorySongsPage</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n song</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 di %n song</source>
        <translation>
            <numerusform>%1 di %n song</numerusform>
            <numerusform>%1 di %n song</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n scelte</source>
        <translation>
            <numerusform>%n scelta</numerusform>
            <numerusform>%n scelte</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MemoryWindow</name>
    <message>
        <source>Memoria</source>
        <translation>Memoria</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>Memoria:</translation>
    </message>
    <message>
        <source>Altra cartella...</source>
        <translation>Altra cartella...</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>Cartella:</translation>
    </message>
    <message>
        <source>Rileggi</source>
        <translation>Rileggi</translation>
    </message>
    <message>
        <source>Spazio occupato</source>
        <translation>Spazio occupato</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Cerca:</translation>
    </message>
    <message>
        <source>Song della memoria</source>
        <translation>Song della memoria</translation>
    </message>
    <message>
        <source>Modifica...</source>
        <translation>Modifica...</translation>
    </message>
    <message>
        <source>Rinomina...</source>
        <translation>Rinomina...</translation>
    </message>
    <message>
        <source>Copia sul computer...</source>
        <translation>Copia sul computer...</translation>
    </message>
    <message>
        <source>Apri cartella</source>
        <translation>Apri cartella</translation>
    </message>
    <message>
        <source>Elimina dalla memoria...</source>
        <translation>Elimina dalla memoria...</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlist</translation>
    </message>
    <message>
        <source>Playlist della memoria</source>
        <translation>Playlist della memoria</translation>
    </message>
    <message>
        <source>Song della playlist</source>
        <translation>Song della playlist</translation>
    </message>
    <message>
        <source>Doppie</source>
        <translation>Doppie</translation>
    </message>
    <message>
        <source>Song doppie</source>
        <translation>Song doppie</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Dimensione</translation>
    </message>
    <message>
        <source>Confronta i file</source>
        <translation>Confronta i file</translation>
    </message>
    <message>
        <source>Elimina le song scelte...</source>
        <translation>Elimina le song scelte...</translation>
    </message>
    <message>
        <source>Controllo</source>
        <translation>Controllo</translation>
    </message>
    <message>
        <source>Risultato del controllo</source>
        <translation>Risultato del controllo</translation>
    </message>
    <message>
        <source>Che cosa non va</source>
        <translation>Che cosa non va</translation>
    </message>
    <message>
        <source>Che cosa aiuta</source>
        <translation>Che cosa aiuta</translation>
    </message>
    <message>
        <source>Controlla</source>
        <translation>Controlla</translation>
    </message>
    <message>
        <source>Aggiorna</source>
        <translation>Aggiorna</translation>
    </message>
    <message>
        <source>Rigenera...</source>
        <translation>Rigenera...</translation>
    </message>
    <message>
        <source>Ripara le playlist...</source>
        <translation>Ripara le playlist...</translation>
    </message>
    <message>
        <source>Avanzamento</source>
        <translation>Avanzamento</translation>
    </message>
    <message>
        <source>Interrompi</source>
        <translation>Interrompi</translation>
    </message>
    <message>
        <source>Espelli</source>
        <translation>Espelli</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</source>
        <translation>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</translation>
    </message>
    <message>
        <source>Il servizio del sistema che espelle le memorie non risponde. Espellere la memoria dal file manager.</source>
        <translation>Il servizio del sistema che espelle le memorie non risponde. Espellere la memoria dal file manager.</translation>
    </message>
    <message numerus="yes">
        <source>%n cartelle non leggibili</source>
        <translation>
            <numerusform>%n cartella non leggibile</numerusform>
            <numerusform>%n cartelle non leggibili</numerusform>
        </translation>
    </message>
    <message>
        <source>Scegliere una memoria</source>
        <translation>Scegliere una memoria</translation>
    </message>
    <message>
        <source>senza database: il player non trova nessuna song</source>
        <translation>senza database: il player non trova nessuna song</translation>
    </message>
    <message>
        <source>database danneggiato, del %1</source>
        <translation>database danneggiato, del %1</translation>
    </message>
    <message>
        <source>database del %1</source>
        <translation>database del %1</translation>
    </message>
    <message numerus="yes">
        <source>di %n giorni fa</source>
        <translation>
            <numerusform>di %n giorno fa</numerusform>
            <numerusform>di %n giorni fa</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>mancano %n song</source>
        <translation>
            <numerusform>manca %n song</numerusform>
            <numerusform>mancano %n song</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song modificate</source>
        <translation>
            <numerusform>%n song modificata</numerusform>
            <numerusform>%n song modificate</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song senza file</source>
        <translation>
            <numerusform>%n song senza file</numerusform>
            <numerusform>%n song senza file</numerusform>
        </translation>
    </message>
    <message>
        <source>completo</source>
        <translation>completo</translation>
    </message>
    <message>
        <source>%1 occupati, %2 liberi di %3</source>
        <translation>%1 occupati, %2 liberi di %3</translation>
    </message>
    <message>
        <source>Aggiorna il database</source>
        <translation>Aggiorna il database</translation>
    </message>
    <message>
        <source>Rigenera il database...</source>
        <translation>Rigenera il database...</translation>
    </message>
</context>
<context>
    <name>PlaylistRepair</name>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima.</source>
        <translation>La memoria non ha un database completo: aggiornarlo prima.</translation>
    </message>
    <message>
        <source>Non è stato possibile leggere le playlist.</source>
        <translation>Non è stato possibile leggere le playlist.</translation>
    </message>
</context>
<context>
    <name>RenameSongDialog</name>
    <message>
        <source>Rinomina song</source>
        <translation>Rinomina song</translation>
    </message>
    <message numerus="yes">
        <source>Nuovo nome, al massimo %n caratteri:</source>
        <translation>
            <numerusform>Nuovo &amp;nome, al massimo %n carattere:</numerusform>
            <numerusform>Nuovo &amp;nome, al massimo %n caratteri:</numerusform>
        </translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>Rinomina</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
</context>
<context>
    <name>CheckFindings</name>
    <message numerus="yes">
        <source>(e altri %n di questo tipo)</source>
        <translation>
            <numerusform>(e un altro di questo tipo)</numerusform>
            <numerusform>(e altri %n di questo tipo)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CommandHistory</name>
    <message>
        <source>Continuare senza cronologia? Le modifiche non potranno essere annullate.</source>
        <translation>Continuare senza cronologia? Le modifiche non potranno essere annullate.</translation>
    </message>
    <message>
        <source>Le altre song non sono state modificate</source>
        <translation>Le altre song non sono state modificate</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Sincronizzazione</source>
        <translation>Sincronizzazione</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>Modifica di più song</source>
        <translation>Modifica di più song</translation>
    </message>
    <message>
        <source>Preparazione dei tag MP3</source>
        <translation>Preparazione dei tag MP3</translation>
    </message>
    <message>
        <source>Nuovi nomi</source>
        <translation>Nuovi nomi</translation>
    </message>
    <message>
        <source>Annullamento</source>
        <translation>Annullamento</translation>
    </message>
    <message>
        <source>Misura</source>
        <translation>Misura</translation>
    </message>
    <message>
        <source>La cronologia è di una versione più recente del programma.</source>
        <translation>La cronologia è di una versione più recente del programma.</translation>
    </message>
    <message>
        <source>La cronologia è danneggiata.</source>
        <translation>La cronologia è danneggiata.</translation>
    </message>
    <message>
        <source>La cronologia non può essere scritta: il disco è pieno o guasto.</source>
        <translation>La cronologia non può essere scritta: il disco è pieno o guasto.</translation>
    </message>
    <message>
        <source>come il lavoro l&apos;ha lasciata</source>
        <translation>come il lavoro l&apos;ha lasciata</translation>
    </message>
    <message>
        <source>spostata</source>
        <translation>spostata</translation>
    </message>
    <message>
        <source>è già come prima</source>
        <translation>è già come prima</translation>
    </message>
    <message>
        <source>cambiata dopo</source>
        <translation>cambiata dopo</translation>
    </message>
    <message>
        <source>non c&apos;è più</source>
        <translation>non c&apos;è più</translation>
    </message>
    <message numerus="yes">
        <source>La cronologia è piena: %n lavori più vecchi non possono più essere annullati.</source>
        <translation>
            <numerusform>La cronologia è piena: il lavoro più vecchio non può più essere annullato.</numerusform>
            <numerusform>La cronologia è piena: %n lavori più vecchi non possono più essere annullati.</numerusform>
        </translation>
    </message>
    <message>
        <source>Continuare senza cronologia? Le modifiche non potranno essere annullate.</source>
        <translation>Continuare senza cronologia? Le modifiche non potranno essere annullate.</translation>
    </message>
    <message>
        <source>Cronologia</source>
        <translation>Cronologia</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>La cronologia non ha il lavoro %1</source>
        <translation>La cronologia non ha il lavoro %1</translation>
    </message>
    <message>
        <source>Non c&apos;è niente da annullare</source>
        <translation>Non c&apos;è niente da annullare</translation>
    </message>
    <message>
        <source>Annullamento</source>
        <translation>Annullamento</translation>
    </message>
    <message>
        <source>il lavoro non ha modificato questa song</source>
        <translation>il lavoro non ha modificato questa song</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>Cronologia</source>
        <translation>Cronologia</translation>
    </message>
    <message>
        <source>&amp;Lavori che hanno modificato song:</source>
        <translation>&amp;Lavori che hanno modificato song:</translation>
    </message>
    <message>
        <source>Ora</source>
        <translation>Ora</translation>
    </message>
    <message>
        <source>Lavoro</source>
        <translation>Lavoro</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Song</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>Stato</translation>
    </message>
    <message>
        <source>Song &amp;del lavoro scelto:</source>
        <translation>Song &amp;del lavoro scelto:</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song e campo</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Prima</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>Dopo</translation>
    </message>
    <message>
        <source>Adesso</source>
        <translation>Adesso</translation>
    </message>
    <message>
        <source>Annulla anche le song &amp;cambiate dopo</source>
        <translation>Annulla anche le song &amp;cambiate dopo</translation>
    </message>
    <message>
        <source>Spazio per la cr&amp;onologia:</source>
        <translation>Spazio per la cr&amp;onologia:</translation>
    </message>
    <message>
        <source>Quando è pieno, i lavori più vecchi non possono più essere annullati.</source>
        <translation>Quando è pieno, i lavori più vecchi non possono più essere annullati.</translation>
    </message>
    <message>
        <source>Annulla le &amp;song scelte</source>
        <translation>Annulla le &amp;song scelte</translation>
    </message>
    <message>
        <source>Annulla &amp;tutto il lavoro</source>
        <translation>Annulla &amp;tutto il lavoro</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>annullato in parte</source>
        <translation>annullato in parte</translation>
    </message>
    <message>
        <source>annullato</source>
        <translation>annullato</translation>
    </message>
    <message>
        <source>di: %1</source>
        <translation>di: %1</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>Nome file</translation>
    </message>
    <message>
        <source>Song controllate: %1 di %2</source>
        <translation>Song controllate: %1 di %2</translation>
    </message>
</context>
<context>
    <name>HistoryUndo</name>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>il file non c&apos;è più</translation>
    </message>
    <message>
        <source>è stata cambiata dopo</source>
        <translation>è stata cambiata dopo</translation>
    </message>
    <message>
        <source>la cronologia non la conserva più, o è danneggiata</source>
        <translation>la cronologia non la conserva più, o è danneggiata</translation>
    </message>
    <message>
        <source>il nome di prima è di un altro file</source>
        <translation>il nome di prima è di un altro file</translation>
    </message>
    <message>
        <source>la cronologia non può essere scritta</source>
        <translation>la cronologia non può essere scritta</translation>
    </message>
    <message>
        <source>non è stato possibile rinominarla</source>
        <translation>non è stato possibile rinominarla</translation>
    </message>
    <message>
        <source>il disco non ha confermato il nuovo nome</source>
        <translation>il disco non ha confermato il nuovo nome</translation>
    </message>
    <message>
        <source>le sue immagini karaoke non sono state rinominate</source>
        <translation>le sue immagini karaoke non sono state rinominate</translation>
    </message>
</context>
<context>
    <name>JobUndo</name>
    <message>
        <source>il database della memoria non è aggiornato</source>
        <translation>il database della memoria non è aggiornato</translation>
    </message>
</context>
<context>
    <name>MemoryHistory</name>
    <message>
        <source>la cronologia non può essere scritta</source>
        <translation>la cronologia non può essere scritta</translation>
    </message>
</context>
<context>
    <name>SongHistory</name>
    <message>
        <source>Cronologia</source>
        <translation>Cronologia</translation>
    </message>
    <message>
        <source>Non c&apos;è niente da annullare.</source>
        <translation>Non c&apos;è niente da annullare.</translation>
    </message>
    <message>
        <source>%1.

Annullare questo lavoro? Le song tornano come erano prima.</source>
        <translation>%1.

Annullare questo lavoro? Le song tornano come erano prima.</translation>
    </message>
</context>
<context>
    <name>TakingBack</name>
    <message numerus="yes">
        <source>%n song sono di nuovo come prima.</source>
        <translation>
            <numerusform>%n song è di nuovo come prima.</numerusform>
            <numerusform>%n song sono di nuovo come prima.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song erano già come prima.</source>
        <translation>
            <numerusform>%n song era già come prima.</numerusform>
            <numerusform>%n song erano già come prima.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono rimaste come sono.</source>
        <translation>
            <numerusform>%n song è rimasta come è.</numerusform>
            <numerusform>%n song sono rimaste come sono.</numerusform>
        </translation>
    </message>
    <message>
        <source>Interrotto: le altre song non sono state toccate.</source>
        <translation>Interrotto: le altre song non sono state toccate.</translation>
    </message>
    <message>
        <source>Non c&apos;era niente da annullare.</source>
        <translation>Non c&apos;era niente da annullare.</translation>
    </message>
    <message>
        <source>Cronologia</source>
        <translation>Cronologia</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Dettagli...</translation>
    </message>
    <message>
        <source>Le song tornano come prima...</source>
        <translation>Le song tornano come prima...</translation>
    </message>
    <message>
        <source>Dettagli</source>
        <translation>Dettagli</translation>
    </message>
    <message>
        <source>Queste &amp;song sono rimaste come sono:</source>
        <translation>Queste &amp;song sono rimaste come sono:</translation>
    </message>
    <message numerus="yes">
        <source>%1 del %2, %n song</source>
        <translation>
            <numerusform>%1 del %2, %n song</numerusform>
            <numerusform>%1 del %2, %n song</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EditArguments</name>
    <message>
        <source>A %1 manca un valore</source>
        <translation>A %1 manca un valore</translation>
    </message>
    <message>
        <source>Valore non valido per %1: %2</source>
        <translation>Valore non valido per %1: %2</translation>
    </message>
</context>
<context>
    <name>EditCommand</name>
    <message>
        <source>Lettura</source>
        <translation>Lettura</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Modifica</translation>
    </message>
    <message>
        <source>%1: %2 accorciato a %3 caratteri: %4</source>
        <translation>%1: %2 accorciato a %3 caratteri: %4</translation>
    </message>
    <message>
        <source>Nomi nuovi</source>
        <translation>Nomi nuovi</translation>
    </message>
</context>
<context>
    <name>EditSeveralDialog</name>
    <message>
        <source>Modifica più song</source>
        <translation>Modifica più song</translation>
    </message>
    <message>
        <source>Pass&amp;i, uno dopo l&apos;altro:</source>
        <translation>Pass&amp;i, uno dopo l&apos;altro:</translation>
    </message>
    <message>
        <source>A&amp;ggiungi</source>
        <translation>A&amp;ggiungi</translation>
    </message>
    <message>
        <source>&amp;Togli</source>
        <translation>&amp;Togli</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Prima</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>Dopo</translation>
    </message>
    <message>
        <source>M&amp;ostra:</source>
        <translation>M&amp;ostra:</translation>
    </message>
    <message>
        <source>tutte le song</source>
        <translation>tutte le song</translation>
    </message>
    <message>
        <source>quelle che cambiano</source>
        <translation>quelle che cambiano</translation>
    </message>
    <message>
        <source>quelle non adatte</source>
        <translation>quelle non adatte</translation>
    </message>
    <message>
        <source>Sp&amp;unta tutte</source>
        <translation>Sp&amp;unta tutte</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;Nessuna</translation>
    </message>
    <message>
        <source>Song con i valori di ora e di dopo</source>
        <translation>Song con i valori di ora e di dopo</translation>
    </message>
    <message>
        <source>A&amp;pplica</source>
        <translation>A&amp;pplica</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Esempio: %1: %2</source>
        <translation>Esempio: %1: %2</translation>
    </message>
    <message>
        <source>non cambia</source>
        <translation>non cambia</translation>
    </message>
    <message numerus="yes">
        <source>%n song cambiano</source>
        <translation>
            <numerusform>1 song cambia</numerusform>
            <numerusform>%n song cambiano</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non sono adatte</source>
        <translation>
            <numerusform>1 non è adatta</numerusform>
            <numerusform>%n non sono adatte</numerusform>
        </translation>
    </message>
    <message>
        <source>Passo %1: %2</source>
        <translation>Passo %1: %2</translation>
    </message>
    <message>
        <source>Scrivo le song...</source>
        <translation>Scrivo le song...</translation>
    </message>
</context>
<context>
    <name>EditStep</name>
    <message>
        <source>il testo supera %1 caratteri</source>
        <translation>il testo supera %1 caratteri</translation>
    </message>
    <message>
        <source>valore non valido per %1: %2</source>
        <translation>valore non valido per %1: %2</translation>
    </message>
    <message>
        <source>non è scelto nessun campo</source>
        <translation>non è scelto nessun campo</translation>
    </message>
    <message>
        <source>manca il testo da cercare</source>
        <translation>manca il testo da cercare</translation>
    </message>
    <message>
        <source>l&apos;espressione non è valida: %1</source>
        <translation>l&apos;espressione non è valida: %1</translation>
    </message>
    <message>
        <source>i due campi sono lo stesso</source>
        <translation>i due campi sono lo stesso</translation>
    </message>
    <message>
        <source>il nome non corrisponde al modello</source>
        <translation>il nome non corrisponde al modello</translation>
    </message>
    <message>
        <source>l&apos;espressione è troppo complessa</source>
        <translation>l&apos;espressione è troppo complessa</translation>
    </message>
    <message>
        <source>l&apos;elenco non ha questo file</source>
        <translation>l&apos;elenco non ha questo file</translation>
    </message>
    <message>
        <source>l&apos;elenco ha questo file più volte, con dati diversi</source>
        <translation>l&apos;elenco ha questo file più volte, con dati diversi</translation>
    </message>
</context>
<context>
    <name>EditStepForm</name>
    <message>
        <source>&amp;Modello:</source>
        <translation>&amp;Modello:</translation>
    </message>
    <message>
        <source>Campi: %title %artist %genre %author %key %bpm, e senza essere presi %track (un numero) e %any (un testo). Con / il modello arriva alle cartelle.</source>
        <translation>Campi: %title %artist %genre %author %key %bpm, e senza essere presi %track (un numero) e %any (un testo). Con / il modello arriva alle cartelle.</translation>
    </message>
    <message>
        <source>&amp;Campo:</source>
        <translation>&amp;Campo:</translation>
    </message>
    <message>
        <source>&amp;Altro campo:</source>
        <translation>&amp;Altro campo:</translation>
    </message>
    <message>
        <source>&amp;Valore:</source>
        <translation>&amp;Valore:</translation>
    </message>
    <message>
        <source>Vuoto toglie il dato.</source>
        <translation>Vuoto toglie il dato.</translation>
    </message>
    <message>
        <source>Ce&amp;rca:</source>
        <translation>Ce&amp;rca:</translation>
    </message>
    <message>
        <source>&amp;Sostituisci con:</source>
        <translation>&amp;Sostituisci con:</translation>
    </message>
    <message>
        <source>&amp;Espressione regolare</source>
        <translation>&amp;Espressione regolare</translation>
    </message>
    <message>
        <source>&amp;Maiuscole e minuscole</source>
        <translation>&amp;Maiuscole e minuscole</translation>
    </message>
    <message>
        <source>S&amp;crittura:</source>
        <translation>S&amp;crittura:</translation>
    </message>
    <message>
        <source>Ogni Parola Maiuscola</source>
        <translation>Ogni Parola Maiuscola</translation>
    </message>
    <message>
        <source>TUTTO MAIUSCOLO</source>
        <translation>TUTTO MAIUSCOLO</translation>
    </message>
    <message>
        <source>tutto minuscolo</source>
        <translation>tutto minuscolo</translation>
    </message>
    <message>
        <source>Solo la prima lettera</source>
        <translation>Solo la prima lettera</translation>
    </message>
    <message>
        <source>&amp;Lingua:</source>
        <translation>&amp;Lingua:</translation>
    </message>
    <message>
        <source>&quot;_&quot; diventa uno spa&amp;zio</source>
        <translation>&quot;_&quot; diventa uno spa&amp;zio</translation>
    </message>
    <message>
        <source>Campi:</source>
        <translation>Campi:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Interprete</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Autore</translation>
    </message>
    <message>
        <source>E&amp;lenco:</source>
        <translation>E&amp;lenco:</translation>
    </message>
    <message>
        <source>Un file CSV: la nostra lista delle song, o quello che scrive un foglio di calcolo. La prima riga dà i nomi alle colonne.</source>
        <translation>Un file CSV: la nostra lista delle song, o quello che scrive un foglio di calcolo. La prima riga dà i nomi alle colonne.</translation>
    </message>
    <message>
        <source>S&amp;foglia...</source>
        <translation>S&amp;foglia...</translation>
    </message>
    <message>
        <source>non è scelto nessun elenco</source>
        <translation>non è scelto nessun elenco</translation>
    </message>
    <message>
        <source>Dal nome del file</source>
        <translation>Dal nome del file</translation>
    </message>
    <message>
        <source>Un valore per tutte</source>
        <translation>Un valore per tutte</translation>
    </message>
    <message>
        <source>Cerca e sostituisci</source>
        <translation>Cerca e sostituisci</translation>
    </message>
    <message>
        <source>Maiuscole e minuscole</source>
        <translation>Maiuscole e minuscole</translation>
    </message>
    <message>
        <source>Togli spazi e &quot;_&quot;</source>
        <translation>Togli spazi e &quot;_&quot;</translation>
    </message>
    <message>
        <source>Scambia due campi</source>
        <translation>Scambia due campi</translation>
    </message>
    <message>
        <source>Da un elenco CSV</source>
        <translation>Da un elenco CSV</translation>
    </message>
    <message>
        <source>Scegli l&apos;elenco</source>
        <translation>Scegli l&apos;elenco</translation>
    </message>
    <message>
        <source>Elenchi (*.csv *.txt *.tsv)</source>
        <translation>Elenchi (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>Tutti i file (*)</source>
        <translation>Tutti i file (*)</translation>
    </message>
</context>
<context>
    <name>NamePattern</name>
    <message>
        <source>il modello è vuoto</source>
        <translation>il modello è vuoto</translation>
    </message>
    <message>
        <source>il modello supera %1 caratteri</source>
        <translation>il modello supera %1 caratteri</translation>
    </message>
    <message>
        <source>questo campo non c&apos;è: %1</source>
        <translation>questo campo non c&apos;è: %1</translation>
    </message>
    <message>
        <source>qui questo campo non vale: %1</source>
        <translation>qui questo campo non vale: %1</translation>
    </message>
    <message>
        <source>tra due campi ci vuole un testo</source>
        <translation>tra due campi ci vuole un testo</translation>
    </message>
    <message>
        <source>il campo c&apos;è due volte: %1</source>
        <translation>il campo c&apos;è due volte: %1</translation>
    </message>
    <message>
        <source>manca un campo, per esempio %1</source>
        <translation>manca un campo, per esempio %1</translation>
    </message>
    <message>
        <source>un nome non può contenere &quot;/&quot;</source>
        <translation>un nome non può contenere &quot;/&quot;</translation>
    </message>
</context>
<context>
    <name>SeveralEditor</name>
    <message>
        <source>È stata cambiata dopo l&apos;anteprima</source>
        <translation>È stata cambiata dopo l&apos;anteprima</translation>
    </message>
    <message>
        <source>Questo file non può contenere i dati mostrati</source>
        <translation>Questo file non può contenere i dati mostrati</translation>
    </message>
</context>
<context>
    <name>SeveralRenamer</name>
    <message>
        <source>Un altro file ha già il nome nuovo</source>
        <translation>Un altro file ha già il nome nuovo</translation>
    </message>
    <message>
        <source>Il suo ultimo salvataggio non è finito</source>
        <translation>Il suo ultimo salvataggio non è finito</translation>
    </message>
    <message>
        <source>Il file non può essere rinominato</source>
        <translation>Il file non può essere rinominato</translation>
    </message>
    <message>
        <source>Il disco non ha confermato il nome nuovo</source>
        <translation>Il disco non ha confermato il nome nuovo</translation>
    </message>
</context>
<context>
    <name>SeveralRenames</name>
    <message>
        <source>alla song manca un dato del modello</source>
        <translation>alla song manca un dato del modello</translation>
    </message>
    <message>
        <source>è in una memoria: si rinomina nella finestra della memoria</source>
        <translation>è in una memoria: si rinomina nella finestra della memoria</translation>
    </message>
    <message>
        <source>il nome sarebbe vuoto</source>
        <translation>il nome sarebbe vuoto</translation>
    </message>
    <message>
        <source>non c&apos;è un nome libero</source>
        <translation>non c&apos;è un nome libero</translation>
    </message>
    <message>
        <source>qui il nome cambierebbe solo nelle maiuscole</source>
        <translation>qui il nome cambierebbe solo nelle maiuscole</translation>
    </message>
    <message>
        <source>il player non ha uno dei caratteri</source>
        <translation>il player non ha uno dei caratteri</translation>
    </message>
</context>
<context>
    <name>SeveralSongsModel</name>
    <message>
        <source>cambia</source>
        <translation>cambia</translation>
    </message>
    <message>
        <source>%1 accorciato</source>
        <translation>%1 accorciato</translation>
    </message>
    <message>
        <source>&quot;?&quot; al posto di: %1</source>
        <translation>&quot;?&quot; al posto di: %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>%1 dopo</source>
        <translation>%1 dopo</translation>
    </message>
    <message>
        <source>%1 ora</source>
        <translation>%1 ora</translation>
    </message>
</context>
<context>
    <name>CsvList</name>
    <message>
        <source>l&apos;elenco è troppo grande</source>
        <translation>l&apos;elenco è troppo grande</translation>
    </message>
    <message>
        <source>l&apos;elenco è troppo grande o danneggiato</source>
        <translation>l&apos;elenco è troppo grande o danneggiato</translation>
    </message>
    <message>
        <source>l&apos;elenco non è leggibile</source>
        <translation>l&apos;elenco non è leggibile</translation>
    </message>
    <message>
        <source>l&apos;elenco è vuoto</source>
        <translation>l&apos;elenco è vuoto</translation>
    </message>
    <message>
        <source>all&apos;elenco manca la colonna con i nomi dei file</source>
        <translation>all&apos;elenco manca la colonna con i nomi dei file</translation>
    </message>
    <message>
        <source>l&apos;elenco non ha colonne con dati di song</source>
        <translation>l&apos;elenco non ha colonne con dati di song</translation>
    </message>
</context>
<context>
    <name>RenameSeveralDialog</name>
    <message>
        <source>Rinomina i file</source>
        <translation>Rinomina i file</translation>
    </message>
    <message>
        <source>&amp;Modello:</source>
        <translation>&amp;Modello:</translation>
    </message>
    <message>
        <source>Campi: %title %artist %genre %author %key %bpm e %name, il nome di ora.</source>
        <translation>Campi: %title %artist %genre %author %key %bpm e %name, il nome di ora.</translation>
    </message>
    <message>
        <source>Solo nomi che il player può mo&amp;strare, di otto caratteri</source>
        <translation>Solo nomi che il player può mo&amp;strare, di otto caratteri</translation>
    </message>
    <message>
        <source>File con i nomi di ora e di dopo</source>
        <translation>File con i nomi di ora e di dopo</translation>
    </message>
    <message>
        <source>Nome di ora</source>
        <translation>Nome di ora</translation>
    </message>
    <message>
        <source>Nome nuovo</source>
        <translation>Nome nuovo</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>&amp;Rinomina</source>
        <translation>&amp;Rinomina</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message numerus="yes">
        <source>%n file cambiano nome</source>
        <translation>
            <numerusform>1 file cambia nome</numerusform>
            <numerusform>%n file cambiano nome</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non sono adatti</source>
        <translation>
            <numerusform>1 non è adatto</numerusform>
            <numerusform>%n non sono adatti</numerusform>
        </translation>
    </message>
    <message>
        <source>Modello: %1</source>
        <translation>Modello: %1</translation>
    </message>
    <message>
        <source>non cambia</source>
        <translation>non cambia</translation>
    </message>
    <message>
        <source>Esempio: %1: %2</source>
        <translation>Esempio: %1: %2</translation>
    </message>
    <message>
        <source>Rinomino i file...</source>
        <translation>Rinomino i file...</translation>
    </message>
    <message>
        <source>Questi &amp;file non sono a posto:</source>
        <translation>Questi &amp;file non sono a posto:</translation>
    </message>
</context>
<context>
    <name>Tags</name>
    <message>
        <source>un&apos;altra codifica dei caratteri</source>
        <translation>un&apos;altra codifica dei caratteri</translation>
    </message>
    <message>
        <source>un&apos;altra versione di ID3</source>
        <translation>un&apos;altra versione di ID3</translation>
    </message>
    <message>
        <source>byte aggiunti fra gli altri</source>
        <translation>byte aggiunti fra gli altri</translation>
    </message>
    <message>
        <source>solo ID3v1, alla fine del file</source>
        <translation>solo ID3v1, alla fine del file</translation>
    </message>
    <message>
        <source>solo APE, alla fine del file</source>
        <translation>solo APE, alla fine del file</translation>
    </message>
    <message>
        <source>Il player non può mostrare i testi del tag MP3: %1</source>
        <translation>Il player non può mostrare i testi del tag MP3: %1</translation>
    </message>
    <message>
        <source>Il tag è danneggiato, non può essere scritto.</source>
        <translation>Il tag è danneggiato, non può essere scritto.</translation>
    </message>
    <message>
        <source>La nuova versione del tag non può contenere questi dati, che vanno persi: %1</source>
        <translation>La nuova versione del tag non può contenere questi dati, che vanno persi: %1</translation>
    </message>
    <message>
        <source>Il tag resta di versione 2.4, che contiene dati sconosciuti alla 2.3; il player ne legge i testi.</source>
        <translation>Il tag resta di versione 2.4, che contiene dati sconosciuti alla 2.3; il player ne legge i testi.</translation>
    </message>
    <message>
        <source>Questi testi del tag non si possono leggere e restano come sono: %1</source>
        <translation>Questi testi del tag non si possono leggere e restano come sono: %1</translation>
    </message>
</context>
<context>
    <name>TagsCommand</name>
    <message>
        <source>Tag MP3</source>
        <translation>Tag MP3</translation>
    </message>
</context>
<context>
    <name>TagPreparing</name>
    <message>
        <source>Tag MP3</source>
        <translation>Tag MP3</translation>
    </message>
    <message>
        <source>Il player può mostrare i testi di tutti i file MP3 della lista.</source>
        <translation>Il player può mostrare i testi di tutti i file MP3 della lista.</translation>
    </message>
    <message>
        <source>%1.

Preparare prima il tag per il player?</source>
        <translation>%1.

Preparare prima il tag per il player?</translation>
    </message>
    <message>
        <source>&amp;Prepara...</source>
        <translation>&amp;Prepara...</translation>
    </message>
    <message>
        <source>&amp;Modifica così com&apos;è</source>
        <translation>&amp;Modifica così com&apos;è</translation>
    </message>
    <message>
        <source>Leggo i tag...</source>
        <translation>Leggo i tag...</translation>
    </message>
</context>
<context>
    <name>PrepareTagsDialog</name>
    <message>
        <source>Prepara i tag MP3</source>
        <translation>Prepara i tag MP3</translation>
    </message>
    <message>
        <source>Il player legge solo tag ID3v2.3 con i caratteri dell&apos;Europa occidentale. Qui si vede che cosa mostra adesso di queste song e che cosa mostrerà dopo; con un doppio clic i nuovi testi si possono modificare. Il resto dei file non cambia.</source>
        <translation>Il player legge solo tag ID3v2.3 con i caratteri dell&apos;Europa occidentale. Qui si vede che cosa mostra adesso di queste song e che cosa mostrerà dopo; con un doppio clic i nuovi testi si possono modificare. Il resto dei file non cambia.</translation>
    </message>
    <message>
        <source>&amp;Song con tag da preparare:</source>
        <translation>&amp;Song con tag da preparare:</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song e campo</translation>
    </message>
    <message>
        <source>Il player mostra</source>
        <translation>Il player mostra</translation>
    </message>
    <message>
        <source>Nel tag</source>
        <translation>Nel tag</translation>
    </message>
    <message>
        <source>Il player mostrerà</source>
        <translation>Il player mostrerà</translation>
    </message>
    <message>
        <source>&amp;Tutte le song</source>
        <translation>&amp;Tutte le song</translation>
    </message>
    <message>
        <source>&amp;Applica</source>
        <translation>&amp;Applica</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Song scelte: %1 di %2</source>
        <translation>Song scelte: %1 di %2</translation>
    </message>
    <message>
        <source>Scrivo i tag...</source>
        <translation>Scrivo i tag...</translation>
    </message>
    <message numerus="yes">
        <source>Tag scritti: %n.</source>
        <translation>
            <numerusform>Tag scritti: %n.</numerusform>
            <numerusform>Tag scritti: %n.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono rimaste come sono.</source>
        <translation>
            <numerusform>%n song è rimasta com&apos;è.</numerusform>
            <numerusform>%n song sono rimaste come sono.</numerusform>
        </translation>
    </message>
    <message>
        <source>Interrotto: le altre song non sono state toccate.</source>
        <translation>Interrotto: le altre song non sono state toccate.</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Dettagli...</translation>
    </message>
    <message>
        <source>&amp;Song rimaste come sono:</source>
        <translation>&amp;Song rimaste come sono:</translation>
    </message>
</context>
<context>
    <name>SongLists</name>
    <message>
        <source>Queste song sono già nella lista</source>
        <translation>Queste song sono già nella lista</translation>
    </message>
    <message>
        <source>Song aggiunte alla lista: %1</source>
        <translation>Song aggiunte alla lista: %1</translation>
    </message>
    <message>
        <source>Apri lista</source>
        <translation>Apri lista</translation>
    </message>
    <message>
        <source>La lista non contiene song</source>
        <translation>La lista non contiene song</translation>
    </message>
    <message>
        <source>Non è il percorso di un file</source>
        <translation>Non è il percorso di un file</translation>
    </message>
    <message>
        <source>La lista è troppo lunga: solo le prime %1 song sono state lette.</source>
        <translation>La lista è troppo lunga: solo le prime %1 song sono state lette.</translation>
    </message>
    <message>
        <source>La lista è vuota</source>
        <translation>La lista è vuota</translation>
    </message>
    <message>
        <source>Lista con percorsi relativi (*.m3u8)</source>
        <translation>Lista con percorsi relativi (*.m3u8)</translation>
    </message>
    <message>
        <source>Lista con percorsi assoluti (*.m3u8)</source>
        <translation>Lista con percorsi assoluti (*.m3u8)</translation>
    </message>
    <message>
        <source>Salva lista</source>
        <translation>Salva lista</translation>
    </message>
    <message>
        <source>Song salvate nella lista: %1</source>
        <translation>Song salvate nella lista: %1</translation>
    </message>
    <message>
        <source>Aggiungi %1</source>
        <translation>Aggiungi %1</translation>
    </message>
    <message>
        <source>Nessuna lista</source>
        <translation>Nessuna lista</translation>
    </message>
</context>
<context>
    <name>UserFile</name>
    <message>
        <source>Il file è troppo grande</source>
        <translation>Il file è troppo grande</translation>
    </message>
    <message>
        <source>Il file non può essere letto</source>
        <translation>Il file non può essere letto</translation>
    </message>
    <message>
        <source>Il file è una song e non viene sostituito</source>
        <translation>Il file è una song e non viene sostituito</translation>
    </message>
    <message>
        <source>Non c&apos;è abbastanza spazio</source>
        <translation>Non c&apos;è abbastanza spazio</translation>
    </message>
    <message>
        <source>Nella cartella non si può scrivere</source>
        <translation>Nella cartella non si può scrivere</translation>
    </message>
    <message>
        <source>La cartella non esiste</source>
        <translation>La cartella non esiste</translation>
    </message>
    <message>
        <source>Il file non può essere scritto</source>
        <translation>Il file non può essere scritto</translation>
    </message>
    <message>
        <source>Il file è di un altro tipo e non viene sostituito</source>
        <translation>Il file è di un altro tipo e non viene sostituito</translation>
    </message>
</context>
<context>
    <name>OwnCatalogue</name>
    <message>
        <source>Il mio catalogo è di una versione più recente del programma.</source>
        <translation>Il mio catalogo è di una versione più recente del programma.</translation>
    </message>
    <message>
        <source>Il mio catalogo è danneggiato, o non è un catalogo di questo programma.</source>
        <translation>Il mio catalogo è danneggiato, o non è un catalogo di questo programma.</translation>
    </message>
    <message>
        <source>Il mio catalogo non può essere letto.</source>
        <translation>Il mio catalogo non può essere letto.</translation>
    </message>
    <message>
        <source>Il mio catalogo non può essere scritto.</source>
        <translation>Il mio catalogo non può essere scritto.</translation>
    </message>
    <message>
        <source>Il mio catalogo è in uso da un altro programma.</source>
        <translation>Il mio catalogo è in uso da un altro programma.</translation>
    </message>
</context>
<context>
    <name>CatalogueTsv</name>
    <message>
        <source>riga %1: %2</source>
        <translation>riga %1: %2</translation>
    </message>
    <message>
        <source>non è testo</source>
        <translation>non è testo</translation>
    </message>
    <message>
        <source>mancano delle colonne</source>
        <translation>mancano delle colonne</translation>
    </message>
    <message>
        <source>durata e tempo devono essere numeri</source>
        <translation>durata e tempo devono essere numeri</translation>
    </message>
    <message>
        <source>mancano il titolo o il nome del file, o un testo è troppo lungo</source>
        <translation>mancano il titolo o il nome del file, o un testo è troppo lungo</translation>
    </message>
    <message>
        <source>ci sono troppe voci</source>
        <translation>ci sono troppe voci</translation>
    </message>
    <message>
        <source>la durata va fino a 5999 secondi, il tempo fino a 999</source>
        <translation>la durata va fino a 5999 secondi, il tempo fino a 999</translation>
    </message>
    <message>
        <source>la tonalità non esiste</source>
        <translation>la tonalità non esiste</translation>
    </message>
    <message>
        <source>i marker non sono scritti nella forma battuta;testo;</source>
        <translation>i marker non sono scritti nella forma battuta;testo;</translation>
    </message>
</context>
<context>
    <name>SongEntries</name>
    <message>
        <source>Senza titolo o nome non può stare nel catalogo</source>
        <translation>Senza titolo o nome non può stare nel catalogo</translation>
    </message>
    <message>
        <source>Un&apos;altra song ha lo stesso nome</source>
        <translation>Un&apos;altra song ha lo stesso nome</translation>
    </message>
</context>
<context>
    <name>OwnCatalogueMenu</name>
    <message>
        <source>%1 è nel mio catalogo</source>
        <translation>%1 è nel mio catalogo</translation>
    </message>
    <message numerus="yes">
        <source>%n song sono nel mio catalogo</source>
        <translation>
            <numerusform>%n song è nel mio catalogo</numerusform>
            <numerusform>%n song sono nel mio catalogo</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongSync</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>Il mio catalogo</translation>
    </message>
    <message>
        <source>Continuare con il solo catalogo del programma?</source>
        <translation>Continuare con il solo catalogo del programma?</translation>
    </message>
</context>
<context>
    <name>CatalogueAdding</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>Il mio catalogo</translation>
    </message>
    <message>
        <source>Leggo le song...</source>
        <translation>Leggo le song...</translation>
    </message>
    <message>
        <source>Il file non contiene voci.</source>
        <translation>Il file non contiene voci.</translation>
    </message>
    <message numerus="yes">
        <source>%n voci sono già nel catalogo. Sostituirle?</source>
        <translation>
            <numerusform>Una voce è già nel catalogo. Sostituirla?</numerusform>
            <numerusform>%n voci sono già nel catalogo. Sostituirle?</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Non aggiunto al catalogo:</source>
        <translation>&amp;Non aggiunto al catalogo:</translation>
    </message>
</context>
<context>
    <name>CatalogueEntryDialog</name>
    <message>
        <source>Voce del mio catalogo</source>
        <translation>Voce del mio catalogo</translation>
    </message>
    <message>
        <source>T&amp;itolo:</source>
        <translation>T&amp;itolo:</translation>
    </message>
    <message>
        <source>In&amp;terprete:</source>
        <translation>In&amp;terprete:</translation>
    </message>
    <message>
        <source>Interprete, c&amp;ognome prima:</source>
        <translation>Interprete, c&amp;ognome prima:</translation>
    </message>
    <message>
        <source>&amp;Genere:</source>
        <translation>&amp;Genere:</translation>
    </message>
    <message>
        <source>&amp;Autore:</source>
        <translation>&amp;Autore:</translation>
    </message>
    <message>
        <source>&amp;Durata:</source>
        <translation>&amp;Durata:</translation>
    </message>
    <message>
        <source>&amp;BPM:</source>
        <translation>&amp;BPM:</translation>
    </message>
    <message>
        <source>Tona&amp;lità:</source>
        <translation>Tona&amp;lità:</translation>
    </message>
    <message>
        <source>Nome del &amp;file:</source>
        <translation>Nome del &amp;file:</translation>
    </message>
    <message>
        <source>&amp;Marker:</source>
        <translation>&amp;Marker:</translation>
    </message>
    <message>
        <source>&amp;Salva</source>
        <translation>&amp;Salva</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Manca il titolo.</source>
        <translation>Manca il titolo.</translation>
    </message>
    <message>
        <source>Manca il nome del file.</source>
        <translation>Manca il nome del file.</translation>
    </message>
    <message>
        <source>La durata si scrive in minuti e secondi, per esempio 3:05.</source>
        <translation>La durata si scrive in minuti e secondi, per esempio 3:05.</translation>
    </message>
    <message>
        <source>Ogni riga dei marker ha una misura e un testo, per esempio: 9 Verse1</source>
        <translation>Ogni riga dei marker ha una misura e un testo, per esempio: 9 Verse1</translation>
    </message>
    <message>
        <source>Un testo è troppo lungo.</source>
        <translation>Un testo è troppo lungo.</translation>
    </message>
    <message>
        <source>Il tempo è un numero, per esempio 120.</source>
        <translation>Il tempo è un numero, per esempio 120.</translation>
    </message>
    <message>
        <source>La tonalità non esiste.</source>
        <translation>La tonalità non esiste.</translation>
    </message>
</context>
<context>
    <name>CatalogueDialog</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>Il mio catalogo</translation>
    </message>
    <message>
        <source>La sincronizzazione cerca le song prima in queste voci e poi nel catalogo del programma.</source>
        <translation>La sincronizzazione cerca le song prima in queste voci e poi nel catalogo del programma.</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Cerca:</translation>
    </message>
    <message>
        <source>Voci del mio catalogo</source>
        <translation>Voci del mio catalogo</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Titolo</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Interprete</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genere</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Durata</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Tonalità</translation>
    </message>
    <message>
        <source>Nome del file</source>
        <translation>Nome del file</translation>
    </message>
    <message>
        <source>Aggiungi le song della &amp;lista</source>
        <translation>Aggiungi le song della &amp;lista</translation>
    </message>
    <message>
        <source>&amp;Importa...</source>
        <translation>&amp;Importa...</translation>
    </message>
    <message>
        <source>Es&amp;porta...</source>
        <translation>Es&amp;porta...</translation>
    </message>
    <message>
        <source>&amp;Modifica...</source>
        <translation>&amp;Modifica...</translation>
    </message>
    <message>
        <source>&amp;Elimina</source>
        <translation>&amp;Elimina</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Voci: %1 di %2</source>
        <translation>Voci: %1 di %2</translation>
    </message>
    <message>
        <source>C&apos;è già una voce con questo nome del file. Sostituirla?</source>
        <translation>C&apos;è già una voce con questo nome del file. Sostituirla?</translation>
    </message>
    <message numerus="yes">
        <source>Eliminare %n voci dal catalogo? Le song restano come sono.</source>
        <translation>
            <numerusform>Eliminare una voce dal catalogo? Le song restano come sono.</numerusform>
            <numerusform>Eliminare %n voci dal catalogo? Le song restano come sono.</numerusform>
        </translation>
    </message>
    <message>
        <source>Importa voci</source>
        <translation>Importa voci</translation>
    </message>
    <message>
        <source>Esporta voci</source>
        <translation>Esporta voci</translation>
    </message>
</context>
<context>
    <name>MeasureCommand</name>
    <message>
        <source>Misura</source>
        <translation>Misura</translation>
    </message>
</context>
<context>
    <name>ColumnChoice</name>
    <message>
        <source>Come all&apos;inizio</source>
        <translation>Come all&apos;inizio</translation>
    </message>
</context>
<context>
    <name>ListOutput</name>
    <message>
        <source>Lista delle song</source>
        <translation>Lista delle song</translation>
    </message>
    <message>
        <source>Stampa lista</source>
        <translation>Stampa lista</translation>
    </message>
    <message numerus="yes">
        <source>Lista delle song: %n song</source>
        <translation>
            <numerusform>Lista delle song: %n song</numerusform>
            <numerusform>Lista delle song: %n song</numerusform>
        </translation>
    </message>
    <message>
        <source>La lista non può essere stampata</source>
        <translation>La lista non può essere stampata</translation>
    </message>
    <message>
        <source>Song copiate negli appunti: %1</source>
        <translation>Song copiate negli appunti: %1</translation>
    </message>
    <message>
        <source>Lista salvata in %1</source>
        <translation>Lista salvata in %1</translation>
    </message>
    <message>
        <source>La lista è alla stampante</source>
        <translation>La lista è alla stampante</translation>
    </message>
</context>
<context>
    <name>TablePages</name>
    <message>
        <source>Pagina %1 di %2</source>
        <translation>Pagina %1 di %2</translation>
    </message>
</context>
<context>
    <name>JobPace</name>
    <message>
        <source>Song al secondo: %1</source>
        <translation>Song al secondo: %1</translation>
    </message>
    <message>
        <source>Song al minuto: %1</source>
        <translation>Song al minuto: %1</translation>
    </message>
    <message numerus="yes">
        <source>ancora %n secondi circa</source>
        <translation>
            <numerusform>ancora %n secondo circa</numerusform>
            <numerusform>ancora %n secondi circa</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>ancora %n minuti circa</source>
        <translation>
            <numerusform>ancora %n minuto circa</numerusform>
            <numerusform>ancora %n minuti circa</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>ancora %n ore circa</source>
        <translation>
            <numerusform>ancora %n ora circa</numerusform>
            <numerusform>ancora %n ore circa</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BackgroundJob</name>
    <message>
        <source>Memoria</source>
        <translation>Memoria</translation>
    </message>
</context>
<context>
    <name>JobNotice</name>
    <message>
        <source>Il lavoro è finito</source>
        <translation>Il lavoro è finito</translation>
    </message>
    <message>
        <source>Il programma aspetta una risposta</source>
        <translation>Il programma aspetta una risposta</translation>
    </message>
</context>
<context>
    <name>FillFromMusicDialog</name>
    <message>
        <source>Completa dalla musica</source>
        <translation>Completa dalla musica</translation>
    </message>
    <message>
        <source>Durata, BPM, tonalità e marker come risultano dalla musica, accanto a ciò che le song dicono ora; per gli MP3 solo la durata. Si scrive ciò che è spuntato: un valore che c&apos;è già e una tonalità stimata lo sono solo se lo vuoi.</source>
        <translation>Durata, BPM, tonalità e marker come risultano dalla musica, accanto a ciò che le song dicono ora; per gli MP3 solo la durata. Si scrive ciò che è spuntato: un valore che c&apos;è già e una tonalità stimata lo sono solo se lo vuoi.</translation>
    </message>
    <message>
        <source>Anche le &amp;song a cui non manca nulla</source>
        <translation>Anche le &amp;song a cui non manca nulla</translation>
    </message>
    <message>
        <source>Anche le &amp;tonalità stimate</source>
        <translation>Anche le &amp;tonalità stimate</translation>
    </message>
    <message>
        <source>Sp&amp;unta tutte</source>
        <translation>Sp&amp;unta tutte</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;Nessuna</translation>
    </message>
    <message>
        <source>Song con i valori di ora e quelli della musica</source>
        <translation>Song con i valori di ora e quelli della musica</translation>
    </message>
    <message>
        <source>A&amp;pplica</source>
        <translation>A&amp;pplica</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>Misuro le song...</source>
        <translation>Misuro le song...</translation>
    </message>
    <message>
        <source>Scrivo le song...</source>
        <translation>Scrivo le song...</translation>
    </message>
    <message>
        <source>A nessuna song manca un valore che la musica può dare</source>
        <translation>A nessuna song manca un valore che la musica può dare</translation>
    </message>
    <message numerus="yes">
        <source>%n song cambiano</source>
        <translation>
            <numerusform>1 song cambia</numerusform>
            <numerusform>%n song cambiano</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non misurabili per intero</source>
        <translation>
            <numerusform>1 non misurabile per intero</numerusform>
            <numerusform>%n non misurabili per intero</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>interrotto: %n non misurate</source>
        <translation>
            <numerusform>interrotto: 1 non misurata</numerusform>
            <numerusform>interrotto: %n non misurate</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MusicOffer</name>
    <message>
        <source>Troppi marker: gli ultimi mancano</source>
        <translation>Troppi marker: gli ultimi mancano</translation>
    </message>
</context>
<context>
    <name>MusicOffersModel</name>
    <message>
        <source>non misurabile</source>
        <translation>non misurabile</translation>
    </message>
    <message>
        <source>%1 (stimata)</source>
        <translation>%1 (stimata)</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Nota</translation>
    </message>
    <message>
        <source>%1 dopo</source>
        <translation>%1 dopo</translation>
    </message>
    <message>
        <source>%1 ora</source>
        <translation>%1 ora</translation>
    </message>
</context>
<context>
    <name>RenderCommand</name>
    <message>
        <source>Il file esiste già. Sostituirlo?</source>
        <translation>Il file esiste già. Sostituirlo?</translation>
    </message>
</context>
<context>
    <name>SoundProblem</name>
    <message>
        <source>Questa versione del programma è senza suono</source>
        <translation>Questa versione del programma è senza suono</translation>
    </message>
    <message>
        <source>La parte del programma che suona le song non è installata</source>
        <translation>La parte del programma che suona le song non è installata</translation>
    </message>
    <message>
        <source>Manca un sound font per suonare le song MIDI (per esempio il pacchetto timgm6mb-soundfont)</source>
        <translation>Manca un sound font per suonare le song MIDI (per esempio il pacchetto timgm6mb-soundfont)</translation>
    </message>
    <message>
        <source>Il sound font non può essere letto</source>
        <translation>Il sound font non può essere letto</translation>
    </message>
    <message>
        <source>Non c&apos;è un dispositivo audio</source>
        <translation>Non c&apos;è un dispositivo audio</translation>
    </message>
    <message>
        <source>Il dispositivo audio non risponde</source>
        <translation>Il dispositivo audio non risponde</translation>
    </message>
    <message>
        <source>Il file non può essere letto</source>
        <translation>Il file non può essere letto</translation>
    </message>
    <message>
        <source>Un altro programma sta salvando la song</source>
        <translation>Un altro programma sta salvando la song</translation>
    </message>
    <message>
        <source>Il file non è una song</source>
        <translation>Il file non è una song</translation>
    </message>
    <message>
        <source>La song è danneggiata</source>
        <translation>La song è danneggiata</translation>
    </message>
    <message>
        <source>La song è troppo grande per essere suonata</source>
        <translation>La song è troppo grande per essere suonata</translation>
    </message>
    <message>
        <source>La song dura più di 6 ore</source>
        <translation>La song dura più di 6 ore</translation>
    </message>
    <message>
        <source>Nella song non c&apos;è niente da sentire</source>
        <translation>Nella song non c&apos;è niente da sentire</translation>
    </message>
</context>
<context>
    <name>EmptyListPage</name>
    <message>
        <source>Riapri l&apos;ultima lista</source>
        <translation>Riapri l&apos;ultima lista</translation>
    </message>
    <message>
        <source>Rilascia qui le song</source>
        <translation>Rilascia qui le song</translation>
    </message>
    <message>
        <source>Trascina qui song o cartelle</source>
        <translation>Trascina qui song o cartelle</translation>
    </message>
    <message>
        <source>In tre passi sulla memoria di Kavena</source>
        <translation>In tre passi sulla memoria di Kavena</translation>
    </message>
    <message>
        <source>&lt;b&gt;Scegli le song&lt;/b&gt; o trascinale qui, anche cartelle intere.</source>
        <translation>&lt;b&gt;Scegli le song&lt;/b&gt; o trascinale qui, anche cartelle intere.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Sincronizza:&lt;/b&gt; i dati che mancano, come titolo e artista, arrivano dal catalogo.</source>
        <translation>&lt;b&gt;Sincronizza:&lt;/b&gt; i dati che mancano, come titolo e artista, arrivano dal catalogo.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Trasferisci:&lt;/b&gt; le song vanno nella memoria di Kavena, pronte da suonare.</source>
        <translation>&lt;b&gt;Trasferisci:&lt;/b&gt; le song vanno nella memoria di Kavena, pronte da suonare.</translation>
    </message>
    <message>
        <source>Scegli &amp;song...</source>
        <translation>Sce&amp;gli song...</translation>
    </message>
    <message>
        <source>Scegli c&amp;artella...</source>
        <translation>Scegli ca&amp;rtella...</translation>
    </message>
    <message>
        <source>Ci sono già song nella memoria?</source>
        <translation>Ci sono già song nella memoria?</translation>
    </message>
    <message>
        <source>G&amp;uarda la memoria...</source>
        <translation>G&amp;uarda la memoria...</translation>
    </message>
    <message>
        <source>O riprendi da una lista:</source>
        <translation>O riprendi da una lista:</translation>
    </message>
</context>
<context>
    <name>NoMatchPage</name>
    <message>
        <source>Nessuna song corrisponde al filtro</source>
        <translation>Nessuna song corrisponde al filtro</translation>
    </message>
    <message numerus="yes">
        <source>%n song nascoste</source>
        <translation>
            <numerusform>%n song nascosta</numerusform>
            <numerusform>%n song nascoste</numerusform>
        </translation>
    </message>
    <message>
        <source>Togli il filt&amp;ro</source>
        <translation>Togli il filt&amp;ro</translation>
    </message>
</context>
<context>
    <name>SongStates</name>
    <message>
        <source>sincronizzata</source>
        <translation>sincronizzata</translation>
    </message>
    <message>
        <source>modificata</source>
        <translation>modificata</translation>
    </message>
    <message>
        <source>non sincronizzata</source>
        <translation>non sincronizzata</translation>
    </message>
    <message>
        <source>nuova</source>
        <translation>nuova</translation>
    </message>
    <message>
        <source>Sincronizzata: ha i dati del catalogo</source>
        <translation>Sincronizzata: ha i dati del catalogo</translation>
    </message>
    <message>
        <source>Modificata: ha i dati che hai scritto tu</source>
        <translation>Modificata: ha i dati che hai scritto tu</translation>
    </message>
    <message>
        <source>Non sincronizzata: non è nel catalogo, o è rimasta com&apos;era</source>
        <translation>Non sincronizzata: non è nel catalogo, o è rimasta com&apos;era</translation>
    </message>
    <message>
        <source>Nuova: non ancora sincronizzata</source>
        <translation>Nuova: non ancora sincronizzata</translation>
    </message>
</context>
<context>
    <name>StateButtons</name>
    <message>
        <source>Premi per vedere solo queste song</source>
        <translation>Premi per vedere solo queste song</translation>
    </message>
</context>
<context>
    <name>SyncSummaryBar</name>
    <message>
        <source>%1 di %2 trovate</source>
        <translation>%1 di %2 trovate</translation>
    </message>
    <message>
        <source>%1 non nel catalogo</source>
        <translation>%1 non nel catalogo</translation>
    </message>
    <message>
        <source>%1 non raggiunte</source>
        <translation>%1 non raggiunte</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>%1 senza modifiche</source>
        <translation>%1 senza modifiche</translation>
    </message>
    <message>
        <source>Modifica&amp;le...</source>
        <translation>Modifica&amp;le...</translation>
    </message>
    <message>
        <source>Aggiungile al mio catalo&amp;go...</source>
        <translation>Aggiungile al mio catalo&amp;go...</translation>
    </message>
    <message>
        <source>%1 nel mio catalogo</source>
        <translation>%1 nel mio catalogo</translation>
    </message>
</context>
<context>
    <name>PlayerBar</name>
    <message>
        <source>Scegli un sound font</source>
        <translation>Scegli un sound font</translation>
    </message>
    <message>
        <source>Sound font (*.sf2 *.sf3)</source>
        <translation>Sound font (*.sf2 *.sf3)</translation>
    </message>
    <message>
        <source>Pausa</source>
        <translation>Pausa</translation>
    </message>
    <message>
        <source>Suona</source>
        <translation>Suona</translation>
    </message>
    <message>
        <source>%1 (barra spaziatrice)</source>
        <translation>%1 (barra spaziatrice)</translation>
    </message>
    <message>
        <source>Ascolto</source>
        <translation>Ascolto</translation>
    </message>
    <message>
        <source>Ferma</source>
        <translation>Ferma</translation>
    </message>
    <message>
        <source>Posizione nella song</source>
        <translation>Posizione nella song</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Sound font per le song MIDI</source>
        <translation>Sound font per le song MIDI</translation>
    </message>
    <message>
        <source>Scegli un sound font...</source>
        <translation>Scegli un sound font...</translation>
    </message>
    <message>
        <source>Usa quello installato</source>
        <translation>Usa quello installato</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Marker</translation>
    </message>
    <message>
        <source>Vai a un marker della song</source>
        <translation>Vai a un marker della song</translation>
    </message>
</context>
<context>
    <name>LibrariesDialog</name>
    <message>
        <source>Librerie usate</source>
        <translation>Librerie usate</translation>
    </message>
    <message>
        <source>Nome</source>
        <translation>Nome</translation>
    </message>
    <message>
        <source>Licenza</source>
        <translation>Licenza</translation>
    </message>
    <message>
        <source>A che cosa serve</source>
        <translation>A che cosa serve</translation>
    </message>
    <message>
        <source>finestre, testi e file</source>
        <translation>finestre, testi e file</translation>
    </message>
    <message>
        <source>dominio pubblico</source>
        <translation>dominio pubblico</translation>
    </message>
    <message>
        <source>catalogo, lista e cronologia</source>
        <translation>catalogo, lista e cronologia</translation>
    </message>
    <message>
        <source>lettere che il player non ha</source>
        <translation>lettere che il player non ha</translation>
    </message>
    <message>
        <source>tag dei file MP3</source>
        <translation>tag dei file MP3</translation>
    </message>
    <message>
        <source>compressione della cronologia</source>
        <translation>compressione della cronologia</translation>
    </message>
    <message>
        <source>ascolto delle song</source>
        <translation>ascolto delle song</translation>
    </message>
    <message>
        <source>suono delle song MIDI e MFX</source>
        <translation>suono delle song MIDI e MFX</translation>
    </message>
</context>
<context>
    <name>ShortcutsDialog</name>
    <message>
        <source>Tasti di scelta rapida</source>
        <translation>Tasti di scelta rapida</translation>
    </message>
    <message>
        <source>Tasti</source>
        <translation>Tasti</translation>
    </message>
    <message>
        <source>Comando</source>
        <translation>Comando</translation>
    </message>
    <message>
        <source>Nelle liste</source>
        <translation>Nelle liste</translation>
    </message>
    <message>
        <source>Ascolta la song scelta</source>
        <translation>Ascolta la song scelta</translation>
    </message>
    <message>
        <source>Contenuto della memoria</source>
        <translation>Contenuto della memoria</translation>
    </message>
    <message>
        <source>Cerca song</source>
        <translation>Cerca song</translation>
    </message>
    <message>
        <source>Rileggi la memoria</source>
        <translation>Rileggi la memoria</translation>
    </message>
</context>
<context>
    <name>InfoTableDialog</name>
    <message>
        <source>&amp;Chiudi</source>
        <translation>&amp;Chiudi</translation>
    </message>
</context>
</TS>
