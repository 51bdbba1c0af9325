<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="it_IT">
<context>
    <name>AboutDialog</name>
    <message>
        <source>Informazioni</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Kavena PC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Build date: %2&lt;br/&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>(c) 2011 K-Ravo. Tutti i diritti riservati.&lt;br/&gt;I nomi e i marchi citati appartengono ai rispettivi proprietari.&lt;br/&gt;&lt;a href=&quot;https://kravo.example/&quot;&gt;https://kravo.example/&lt;/a&gt;</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Assistenza:</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>BackupDialog</name>
    <message>
        <source>Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Prosegui senza backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Esegui backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Si consiglia di effettuare un backup della libreria prima di procedere con l&apos;aggiornamento.
Selezionare una cartella di destinazione per il backup oppure premere &apos;Prosegui senza backup&apos;.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>DataEditDialog</name>
    <message>
        <source>Modifica dati song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Percorso file:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Formato:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Modifica i dati della Song:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Titolo Song:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usa il titolo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Usa il filename</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interprete:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Genere Musicale:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Autore:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Durata:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>mm</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ss</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tonalità:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>BPM:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Salva</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Il titolo di tutte le song della lista verrà sovrascritto non il nome del file, sei sicuro?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>FileCopier</name>
    <message>
        <source>esiste già, vuoi sostituirlo?</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>IndexDialog</name>
    <message>
        <source>Dialog</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seleziona la cartella principale della Compact Flash o della Penna USB che vuoi ottimizzare per Kavena:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seleziona l&apos;azione che vuoi eseguire:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ho inserito o eliminato alcune song, aggiorna database</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ho problemi con gli archivi, ricostruisci database</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Controlla struttura memoria</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File found:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Report:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ottimizzazione memoria in corso...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ottimizza memoria</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operazione completata con successo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>LibraryBackup</name>
    <message>
        <source>Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Eseguo backup dellla libreria...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Kavena PC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seleziona le basi musicali che desideri inserire nella memoria di Kavena</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sincronizza song con il database K-Ravo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trasferisci song nella memoria di Kavena</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Opzioni nascoste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Abilita log (riavvio necessario!)</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Cancella log ad ogni avvio</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Debug</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Save</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Import again</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Hide Debug</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Manual Dialog</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Preferenze</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lingua</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Messaggi Copyright</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Strumenti</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Esci</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Italiano</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>English</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Deutsch</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Si</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Rigenera il database delle song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Salva lista delle song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Informazioni</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Informazioni su QT</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Seleziona i file da importare</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lettura file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Importo la libreria...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup eseguito correttamente</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Backup FALLITO !!!</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare il file?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Interrompi</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>NoCopyrightDialog</name>
    <message>
        <source>Richiesta conferma</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Il file:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non è stato pubblicato da K-Ravo. Si vuole procedere comunque con le modifiche?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Si</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Si tutti</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No tutti</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>ProceedDialog</name>
    <message>
        <source>Riassunto importazione</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Si vuole procedere alla sincronizzazione automatica con il database?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non mostrare più messaggi sul copyright</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Si</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>No</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)K-Ravo</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>SongsListDialog</name>
    <message>
        <source>Salva lista song</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>CF/USB:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Browse</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>File:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Ordina per:</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Artista</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Genere</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Salva</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Exit</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scegli nome del file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Impossibile proseguire, la memoria non è preparata per Kavena</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Errore durante la creazione del file</source>
        <translation type="unfinished"></translation>
    </message>
</context>
<context>
    <name>Transfer</name>
    <message>
        <source>Trasferimento</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Tutti i file sono stati copiati correttamente</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non è stato possibile copiare uno o più file</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sul disco di sistema</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Kavena, selezionare un&apos;altra cartella</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Lo spazio libero nella memoria non è sufficiente: mancano %1.
Si vuole procedere comunque con la copia?</source>
        <translation type="unfinished"></translation>
    </message>
    <message>
        <source>Trasferimento file...</source>
        <translation type="unfinished"></translation>
    </message>
</context>
</TS>
