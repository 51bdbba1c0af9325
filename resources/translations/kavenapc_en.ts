<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="it_IT">
<context>
    <name>AboutDialog</name>
    <message>
        <source>Informazioni</source>
        <translation>About Kavena PC</translation>
    </message>
    <message>
        <source>Kavena PC</source>
        <translation>Kavena PC</translation>
    </message>
    <message>
        <source>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Build date: %2&lt;br/&gt;</source>
        <translation>Version:&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp;&amp;nbsp; %1&lt;br/&gt;Build date: %2&lt;br/&gt;</translation>
    </message>
    <message>
        <source>(c) 2011 K-Ravo. Tutti i diritti riservati.&lt;br/&gt;I nomi e i marchi citati appartengono ai rispettivi proprietari.&lt;br/&gt;&lt;a href=&quot;https://kravo.example/&quot;&gt;https://kravo.example/&lt;/a&gt;</source>
        <translation>© 2011 K-Ravo. All rights reserved.&lt;br/&gt;All names and brands mentioned belong to their respective owners.&lt;br/&gt;&lt;a href=&quot;https://kravo.example/&quot;&gt;https://kravo.example/&lt;/a&gt;</translation>
    </message>
    <message>
        <source>Assistenza:</source>
        <translation>Support:</translation>
    </message>
    <message>
        <source>&amp;Librerie e licenze...</source>
        <translation>&amp;Libraries and licences...</translation>
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
        <translation>Backup folder</translation>
    </message>
    <message>
        <source>Sfoglia...</source>
        <translation>&amp;Browse...</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Prosegui senza backup</source>
        <translation>&amp;Continue without backup</translation>
    </message>
    <message>
        <source>Esegui backup</source>
        <translation>&amp;Make backup</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>Si consiglia di effettuare un backup della libreria prima di procedere con l&apos;aggiornamento.
Selezionare una cartella di destinazione per il backup oppure premere &apos;Prosegui senza backup&apos;.</source>
        <translation>We recommend backing up your songs before they are updated.
Select a folder for the backup, or press “Continue without backup”.</translation>
    </message>
</context>
<context>
    <name>ChangePreview</name>
    <message>
        <source>Anteprima delle modifiche</source>
        <translation>Preview of changes</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>no</source>
        <translation>no</translation>
    </message>
    <message>
        <source>Confronto le song con il database...</source>
        <translation>Comparing the songs with the database...</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>Marker attivi</source>
        <translation>Sections shown</translation>
    </message>
    <message>
        <source>(vuoto)</source>
        <translation>(empty)</translation>
    </message>
    <message>
        <source>il mio catalogo</source>
        <translation>my catalogue</translation>
    </message>
    <message>
        <source>catalogo del programma</source>
        <translation>the program&apos;s catalogue</translation>
    </message>
</context>
<context>
    <name>ChangePreviewDialog</name>
    <message>
        <source>Anteprima delle modifiche</source>
        <translation>Preview of changes</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song and detail</translation>
    </message>
    <message>
        <source>Valore attuale</source>
        <translation>Current value</translation>
    </message>
    <message>
        <source>Nuovo valore</source>
        <translation>New value</translation>
    </message>
    <message>
        <source>Nessun file è stato ancora modificato.</source>
        <translation>No file has been changed yet.</translation>
    </message>
    <message>
        <source>Sincronizza</source>
        <translation>&amp;Synchronize</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>%1 (verrà chiesta conferma)</source>
        <translation>%1 (will be asked about)</translation>
    </message>
    <message>
        <source>La sincronizzazione modificherebbe questi dati:</source>
        <translation>Synchronizing would &amp;change these details:</translation>
    </message>
    <message>
        <source>Song che verrebbero modificate: %1 di %2
Song non presenti nel database: %3
Song non leggibili: %4</source>
        <translation>Songs that would change: %1 of %2
Songs that are not in the database: %3
Songs that cannot be read: %4</translation>
    </message>
    <message>
        <source>%1 (&quot;?&quot; al posto di: %2)</source>
        <translation>%1 (&quot;?&quot; instead of: %2)</translation>
    </message>
</context>
<context>
    <name>DataEditDialog</name>
    <message>
        <source>Modifica dati song</source>
        <translation>Edit song details</translation>
    </message>
    <message>
        <source>Percorso file:</source>
        <translation>File:</translation>
    </message>
    <message>
        <source>Formato:</source>
        <translation>Format:</translation>
    </message>
    <message>
        <source>Modifica i dati della Song:</source>
        <translation>Song details:</translation>
    </message>
    <message>
        <source>Titolo Song:</source>
        <translation>Song &amp;title:</translation>
    </message>
    <message>
        <source>Applica a tutti</source>
        <translation>Apply to all</translation>
    </message>
    <message>
        <source>Usa il titolo</source>
        <translation>Use t&amp;itle</translation>
    </message>
    <message>
        <source>Usa il filename</source>
        <translation>Use &amp;file name</translation>
    </message>
    <message>
        <source>Interprete:</source>
        <translation>&amp;Artist:</translation>
    </message>
    <message>
        <source>Genere Musicale:</source>
        <translation>&amp;Genre:</translation>
    </message>
    <message>
        <source>Autore:</source>
        <translation>A&amp;uthor:</translation>
    </message>
    <message>
        <source>Durata:</source>
        <translation>&amp;Length:</translation>
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
        <translation>&amp;Key:</translation>
    </message>
    <message>
        <source>BPM:</source>
        <translation>&amp;BPM:</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Il titolo di tutte le song della lista verrà sovrascritto non il nome del file, sei sicuro?</source>
        <translation>The title of all songs in the list will be replaced by their file name. Are you sure?</translation>
    </message>
    <message>
        <source>L&apos;interprete inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>This artist will be applied to all songs in the list. Are you sure?</translation>
    </message>
    <message>
        <source>Il genere inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>This genre will be applied to all songs in the list. Are you sure?</translation>
    </message>
    <message>
        <source>L&apos;autore inserito verrà applicato a tutte le song della lista, sei sicuro?</source>
        <translation>This author will be applied to all songs in the list. Are you sure?</translation>
    </message>
    <message>
        <source>ATTENZIONE</source>
        <translation>WARNING</translation>
    </message>
    <message>
        <source>Il player mostrerà &quot;?&quot; al posto di: %1</source>
        <translation>The player will show &quot;?&quot; instead of: %1</translation>
    </message>
    <message>
        <source>Il valore inserito verrà applicato a tutte le song scelte, sei sicuro?</source>
        <translation>What you entered will be applied to all selected songs. Are you sure?</translation>
    </message>
</context>
<context>
    <name>HelpDialog</name>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation>Kavena PC Help</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>Cerca nell&apos;aiuto</source>
        <translation>Search the help</translation>
    </message>
    <message>
        <source>&amp;Precedente</source>
        <translation>&amp;Previous</translation>
    </message>
    <message>
        <source>&amp;Successivo</source>
        <translation>&amp;Next</translation>
    </message>
    <message>
        <source>Nessun risultato: prova un&apos;altra parola.</source>
        <translation>Nothing found: try another word.</translation>
    </message>
    <message>
        <source>Risultato %1 di %2</source>
        <translation>Hit %1 of %2</translation>
    </message>
</context>
<context>
    <name>Index</name>
    <message>
        <source>verrà rinominato: </source>
        <translation>Do you want to rename it? New name: </translation>
    </message>
    <message>
        <source>Se il file non viene rinominato, è possibile che non venga rilevato da Kavena.</source>
        <translation>If it is not renamed, Kavena may not find it.</translation>
    </message>
    <message>
        <source>File non importato, errore nel path:</source>
        <translation>File not added, error in its folder or name:</translation>
    </message>
    <message>
        <source>File non importato, path troppo lungo: </source>
        <translation>File not added, its folder and name together are too long: </translation>
    </message>
    <message>
        <source>File non importato, troppi file nella memoria: </source>
        <translation>File not added, too many files on the memory: </translation>
    </message>
    <message>
        <source>File non importato, non può essere letto: </source>
        <translation>File not added, it cannot be read: </translation>
    </message>
    <message>
        <source>Non importato, il nome non è in UTF-8: </source>
        <translation>Not added, the name has characters that cannot be read; please rename: </translation>
    </message>
    <message>
        <source>Cartella non leggibile, le sue song non sono state cercate: </source>
        <translation>Folder cannot be read, its songs were not looked for: </translation>
    </message>
    <message>
        <source>File non importato, il nome differisce da un altro solo per le maiuscole: </source>
        <translation>File not added, its name differs from another one only in upper and lower case: </translation>
    </message>
    <message>
        <source>File non rinominato, l&apos;ultimo salvataggio non è stato completato: </source>
        <translation>File not renamed, its last save was not finished: </translation>
    </message>
    <message>
        <source>TITOLO</source>
        <translation>TITLE</translation>
    </message>
    <message>
        <source>ARTISTA</source>
        <translation>ARTIST</translation>
    </message>
    <message>
        <source>GENERE</source>
        <translation>GENRE</translation>
    </message>
    <message>
        <source>FILE</source>
        <translation>FILE</translation>
    </message>
    <message>
        <source>Nome troppo lungo, il player non lo trova: </source>
        <translation>Name too long, the player does not find it: </translation>
    </message>
</context>
<context>
    <name>IndexDialog</name>
    <message>
        <source>Dialog</source>
        <translation>Optimize memory</translation>
    </message>
    <message>
        <source>Seleziona la cartella principale della Compact Flash o della Penna USB che vuoi ottimizzare per Kavena:</source>
        <translation>Select the &amp;main folder of the Compact Flash card or USB stick that you want to optimize for Kavena:</translation>
    </message>
    <message>
        <source>Sfoglia</source>
        <translation>&amp;Browse</translation>
    </message>
    <message>
        <source>Seleziona l&apos;azione che vuoi eseguire:</source>
        <translation>Select &amp;what you want to do:</translation>
    </message>
    <message>
        <source>Ho inserito o eliminato alcune song, aggiorna database</source>
        <translation>I added or removed some songs: &amp;update the song index</translation>
    </message>
    <message>
        <source>Ho problemi con gli archivi, ricostruisci database</source>
        <translation>The player does not find some songs: &amp;rebuild the song index</translation>
    </message>
    <message>
        <source>Controlla struttura memoria</source>
        <translation>Check memory s&amp;tructure</translation>
    </message>
    <message>
        <source>File found:</source>
        <translation>Files found:</translation>
    </message>
    <message>
        <source>Report:</source>
        <translation>Re&amp;port:</translation>
    </message>
    <message>
        <source>Inizia</source>
        <translation>&amp;Start</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>&amp;Close</translation>
    </message>
    <message>
        <source>Ottimizzazione memoria in corso...</source>
        <translation>Optimizing memory...</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operation completed</translation>
    </message>
    <message>
        <source>Ottimizza memoria</source>
        <translation>Optimize memory</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>The selected folder does not exist</translation>
    </message>
    <message>
        <source>Durante l&apos;operazione si sono verificati alcuni errori.
Consultare il report per maggiori informazioni.</source>
        <translation>Some errors occurred during the operation.
See the report for more information.</translation>
    </message>
    <message>
        <source>Operazione completata con successo</source>
        <translation>Operation completed successfully</translation>
    </message>
    <message>
        <source>Operazione non riuscita.
Assicurarsi che il disco abbia sufficiente spazio libero e che non sia protetto da scrittura.</source>
        <translation>The operation failed.
Make sure that the memory has enough free space and is not write-protected.</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>Memor&amp;y:</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>Folder:</translation>
    </message>
    <message>
        <source>Il percorso selezionato non è una cartella</source>
        <translation>This is a file, not a folder</translation>
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
        <translation>Choose the songs that you want to put on the card or stick</translation>
    </message>
    <message>
        <source>Sincronizza song con il database K-Ravo</source>
        <translation>Synchronize songs with the K-Ravo database</translation>
    </message>
    <message>
        <source>Trasferisci song nella memoria di Kavena</source>
        <translation>Transfer songs to the card or stick</translation>
    </message>
    <message>
        <source>Opzioni nascoste</source>
        <translation>Hidden options</translation>
    </message>
    <message>
        <source>Abilita log (riavvio necessario!)</source>
        <translation>Enable log (restart required!)</translation>
    </message>
    <message>
        <source>Cancella log ad ogni avvio</source>
        <translation>Clear log at every start</translation>
    </message>
    <message>
        <source>Debug</source>
        <translation>Debug</translation>
    </message>
    <message>
        <source>Add Marker</source>
        <translation>Add section</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Save</translation>
    </message>
    <message>
        <source>Import again</source>
        <translation>Import again</translation>
    </message>
    <message>
        <source>Hide Debug</source>
        <translation>Hide debug</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Back up songs</translation>
    </message>
    <message>
        <source>Manual Dialog</source>
        <translation>Manual dialog</translation>
    </message>
    <message>
        <source>File</source>
        <translation>&amp;File</translation>
    </message>
    <message>
        <source>Preferenze</source>
        <translation>&amp;Preferences</translation>
    </message>
    <message>
        <source>Lingua</source>
        <translation>&amp;Language</translation>
    </message>
    <message>
        <source>Messaggi Copyright</source>
        <translation>&amp;Copyright messages</translation>
    </message>
    <message>
        <source>Strumenti</source>
        <translation>&amp;Tools</translation>
    </message>
    <message>
        <source>Aiuto</source>
        <translation>&amp;Help</translation>
    </message>
    <message>
        <source>Esci</source>
        <translation>&amp;Quit</translation>
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
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Rigenera il database delle song</source>
        <translation>&amp;Optimize memory...</translation>
    </message>
    <message>
        <source>Salva lista delle song</source>
        <translation>&amp;Save the song list...</translation>
    </message>
    <message>
        <source>Aiuto Kavena PC</source>
        <translation>Kavena PC &amp;Help...</translation>
    </message>
    <message>
        <source>Informazioni</source>
        <translation>&amp;About Kavena PC...</translation>
    </message>
    <message>
        <source>Informazioni su QT</source>
        <translation>About &amp;Qt...</translation>
    </message>
    <message>
        <source>Seleziona i file da importare</source>
        <translation>Select the files to import</translation>
    </message>
    <message>
        <source>Lettura file</source>
        <translation>Import songs</translation>
    </message>
    <message>
        <source>Importo la libreria...</source>
        <translation>Importing the songs...</translation>
    </message>
    <message>
        <source>Backup eseguito correttamente</source>
        <translation>Backup completed successfully</translation>
    </message>
    <message>
        <source>Backup FALLITO !!!</source>
        <translation>Backup FAILED!</translation>
    </message>
    <message>
        <source>Remove from list</source>
        <translation>&amp;Remove from list</translation>
    </message>
    <message>
        <source>Delete file</source>
        <translation>&amp;Delete file...</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Warning</translation>
    </message>
    <message>
        <source>Sei sicuro di voler cancellare il file?</source>
        <translation>Are you sure you want to delete the file?</translation>
    </message>
    <message>
        <source>Interrompi</source>
        <translation>&amp;Stop</translation>
    </message>
    <message>
        <source>%1 di %2</source>
        <translation>%1 of %2</translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <translation>Synchronize songs</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <translation>Synchronizing the songs...</translation>
    </message>
    <message>
        <source>Eseguo backup dellla libreria...</source>
        <translation>Backing up the songs...</translation>
    </message>
    <message>
        <source>esiste già, vuoi sostituirlo?</source>
        <translation>already exists. Do you want to replace it?</translation>
    </message>
    <message>
        <source>Trasferimento</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>Tutti i file sono stati copiati correttamente</source>
        <translation>All files were copied successfully</translation>
    </message>
    <message>
        <source>Non è stato possibile copiare uno o più file</source>
        <translation>One or more files could not be copied</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Updating the song index...</translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sul disco di sistema</source>
        <translation>This folder is not on a card or stick</translation>
    </message>
    <message>
        <source>Non è possibile copiare i file sulla cartella principale, creare o selezionare una sottocartella</source>
        <translation>Files cannot be copied into the main folder. Create or select a subfolder.</translation>
    </message>
    <message>
        <source>Non è possibile utilizzare le cartelle BRIDGE, SFX e PLAYLIST perchè sono riservate per funzionalità specifiche di Kavena, selezionare un&apos;altra cartella</source>
        <translation>The folders BRIDGE, SFX and PLAYLIST cannot be used because Kavena needs them for itself. Select another folder.</translation>
    </message>
    <message>
        <source>Lo spazio libero nella memoria non è sufficiente: mancano %1.
Si vuole procedere comunque con la copia?</source>
        <translation>There is not enough free space on the memory: %1 more is needed.
Do you want to copy all the same?</translation>
    </message>
    <message>
        <source>Trasferimento file...</source>
        <translation>Transferring the songs...</translation>
    </message>
    <message>
        <source>Mostra le modifiche prima di sincronizzare</source>
        <translation>Show &amp;changes before synchronizing</translation>
    </message>
    <message>
        <source>Song copiate: %1</source>
        <translation>Songs copied: %1</translation>
    </message>
    <message>
        <source>Song saltate: %1</source>
        <translation>Songs skipped: %1</translation>
    </message>
    <message>
        <source>Song non più copiate dopo l&apos;interruzione: %1</source>
        <translation>Songs not copied after you stopped: %1</translation>
    </message>
    <message>
        <source>Il database della memoria non è stato aggiornato.</source>
        <translation>The memory&apos;s song index was not updated.</translation>
    </message>
    <message>
        <source>esiste già un file con questo nome</source>
        <translation>a file of this name is there already</translation>
    </message>
    <message>
        <source>%1: esisteva già e non è stata sostituita</source>
        <translation>%1: was there already and was not replaced</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Search:</translation>
    </message>
    <message>
        <source>Titolo, artista, genere, autore o nome file</source>
        <translation>Title, artist, genre, author or file name</translation>
    </message>
    <message>
        <source>Lista delle song</source>
        <translation>List of songs</translation>
    </message>
    <message>
        <source>&amp;Ordina per</source>
        <translation>Sort &amp;by</translation>
    </message>
    <message>
        <source>&amp;Seleziona song...</source>
        <translation>Choose &amp;songs...</translation>
    </message>
    <message>
        <source>&amp;Trasferisci song...</source>
        <translation>&amp;Transfer songs...</translation>
    </message>
    <message>
        <source>&amp;Modifica dati song...</source>
        <translation>&amp;Edit song details...</translation>
    </message>
    <message>
        <source>&amp;Rimuovi dalla lista</source>
        <translation>&amp;Remove from list</translation>
    </message>
    <message>
        <source>Cance&amp;lla file...</source>
        <translation>&amp;Delete file...</translation>
    </message>
    <message>
        <source>&amp;Cerca song</source>
        <translation>&amp;Find songs</translation>
    </message>
    <message>
        <source>Nessuna song trovata</source>
        <translation>No songs found</translation>
    </message>
    <message>
        <source>Cerco le song nelle cartelle...</source>
        <translation>Searching the folders for songs...</translation>
    </message>
    <message>
        <source>Song della memoria con problemi: %1</source>
        <translation>Songs on the memory with problems: %1</translation>
    </message>
    <message>
        <source>Aggiornamento file</source>
        <comment>Apply to all</comment>
        <translation>Edit songs</translation>
    </message>
    <message>
        <source>Aggiorno la libreria...</source>
        <comment>Apply to all</comment>
        <translation>Editing the songs...</translation>
    </message>
    <message>
        <source>Song non copiate (errori): %1</source>
        <translation>Not copied (errors): %1</translation>
    </message>
    <message>
        <source>Si&amp;ncronizza song...</source>
        <translation>S&amp;ynchronize songs...</translation>
    </message>
    <message>
        <source>la memoria restituisce byte diversi da quelli scritti</source>
        <translation>the memory gives back other bytes than were written</translation>
    </message>
    <message>
        <source>Il piano è stato eseguito</source>
        <translation>The plan has been carried out</translation>
    </message>
    <message>
        <source>Non è stato possibile eseguire tutto il piano</source>
        <translation>The plan could not be carried out completely</translation>
    </message>
    <message>
        <source>Confronto con la memoria...</source>
        <translation>Comparing with the memory...</translation>
    </message>
    <message>
        <source>Song già presenti: %1</source>
        <translation>Songs that were there already: %1</translation>
    </message>
    <message>
        <source>Song rimosse: %1</source>
        <translation>Songs removed: %1</translation>
    </message>
    <message>
        <source>Errori: %1</source>
        <translation>Errors: %1</translation>
    </message>
    <message>
        <source>%1: rimossa</source>
        <translation>%1: removed</translation>
    </message>
    <message>
        <source>%1: sostituita</source>
        <translation>%1: replaced</translation>
    </message>
    <message>
        <source>La cartella %1 è un collegamento a un&apos;altra cartella, dove le song non possono essere copiate</source>
        <translation>The folder %1 is a link to another folder, into which songs cannot be copied</translation>
    </message>
    <message>
        <source>una song dell&apos;elenco si trova lì con questo nome</source>
        <translation>a song of the list lies there under this name</translation>
    </message>
    <message>
        <source>%1: sostituita da un&apos;altra song scelta con lo stesso nome</source>
        <translation>%1: replaced by another selected song of the same name</translation>
    </message>
    <message>
        <source>&amp;Piano di trasferimento...</source>
        <translation>&amp;Transfer plan...</translation>
    </message>
    <message>
        <source>Contenuto della memoria...</source>
        <translation>&amp;View memory...</translation>
    </message>
    <message>
        <source>Mostra la memoria</source>
        <translation>View memory</translation>
    </message>
    <message>
        <source>Espelli la memoria</source>
        <translation>Eject memory</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>&amp;Edit</translation>
    </message>
    <message>
        <source>&amp;Annulla l&apos;ultimo lavoro...</source>
        <translation>&amp;Undo last job...</translation>
    </message>
    <message>
        <source>&amp;Cronologia...</source>
        <translation>&amp;History...</translation>
    </message>
    <message>
        <source>Modifica &amp;più song...</source>
        <translation>Edit &amp;several songs...</translation>
    </message>
    <message>
        <source>&amp;Rinomina i file...</source>
        <translation>&amp;Rename files...</translation>
    </message>
    <message>
        <source>Prepara i ta&amp;g MP3...</source>
        <translation>Prepare MP3 ta&amp;gs...</translation>
    </message>
    <message>
        <source>A&amp;ggiungi file...</source>
        <translation>&amp;Add files...</translation>
    </message>
    <message>
        <source>Aggiung&amp;i cartella...</source>
        <translation>Add fo&amp;lder...</translation>
    </message>
    <message>
        <source>&amp;Apri lista...</source>
        <translation>&amp;Open list...</translation>
    </message>
    <message>
        <source>Sal&amp;va lista...</source>
        <translation>Sa&amp;ve list...</translation>
    </message>
    <message>
        <source>Ria&amp;pri l&apos;ultima lista</source>
        <translation>Reo&amp;pen the last list</translation>
    </message>
    <message>
        <source>&amp;Usati di recente</source>
        <translation>Re&amp;cently used</translation>
    </message>
    <message>
        <source>&amp;Aggiungi al mio catalogo</source>
        <translation>&amp;Add to my catalogue</translation>
    </message>
    <message>
        <source>Aggiungi al mio catalogo</source>
        <translation>Add to my catalogue</translation>
    </message>
    <message>
        <source>&amp;Il mio catalogo...</source>
        <translation>M&amp;y catalogue...</translation>
    </message>
    <message>
        <source>C&amp;opia</source>
        <translation>&amp;Copy</translation>
    </message>
    <message>
        <source>Copia tutta la &amp;lista</source>
        <translation>Copy the &amp;whole list</translation>
    </message>
    <message>
        <source>Colo&amp;nne</source>
        <translation>Colu&amp;mns</translation>
    </message>
    <message>
        <source>Stampa lista...</source>
        <translation>Pri&amp;nt list...</translation>
    </message>
    <message>
        <source>&amp;Completa dalla musica...</source>
        <translation>&amp;Fill in from the music...</translation>
    </message>
    <message>
        <source>Scegli song</source>
        <translation>Choose songs</translation>
    </message>
    <message>
        <source>Sincronizza</source>
        <translation>Synchronize</translation>
    </message>
    <message>
        <source>Trasferisci</source>
        <translation>Transfer</translation>
    </message>
    <message>
        <source>&amp;Tasti di scelta rapida...</source>
        <translation>&amp;Keyboard shortcuts...</translation>
    </message>
</context>
<context>
    <name>MemoryList</name>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>%1 – %2 liberi di %3</source>
        <translation>%1 – %2 free of %3</translation>
    </message>
    <message>
        <source>Nessuna memoria collegata</source>
        <translation>No memory connected</translation>
    </message>
    <message>
        <source>Scegli una memoria</source>
        <translation>Select a memory</translation>
    </message>
</context>
<context>
    <name>MemoryLock</name>
    <message>
        <source>Nella memoria c&apos;è una cartella &quot;%1&quot;: il programma ha bisogno di questo nome.
Spostarla o cancellarla e riprovare.</source>
        <translation>There is a folder &quot;%1&quot; on the memory: the program needs this name.
Please move or delete it and try again.</translation>
    </message>
    <message>
        <source>Un altro programma sta scrivendo su questa memoria.
Non è stato cambiato nulla. Riprovare quando avrà finito.</source>
        <translation>Another program is writing to this memory.
Nothing was changed. Try again when it has finished.</translation>
    </message>
    <message>
        <source>Un altro programma sta scrivendo su questa memoria: %1 (processo %2 sul computer %3, dal %4).
Non è stato cambiato nulla. Riprovare quando avrà finito.</source>
        <translation>Another program is writing to this memory: %1 (process %2 on the computer %3, since %4).
Nothing was changed. Try again when it has finished.</translation>
    </message>
</context>
<context>
    <name>NoCopyrightDialog</name>
    <message>
        <source>Richiesta conferma</source>
        <translation>Confirmation</translation>
    </message>
    <message>
        <source>Il file:</source>
        <translation>File:</translation>
    </message>
    <message>
        <source>TextLabel</source>
        <translation>TextLabel</translation>
    </message>
    <message>
        <source>Non è stato pubblicato da K-Ravo. Si vuole procedere comunque con le modifiche?</source>
        <translation>This file was not published by K-Ravo. Do you want to change it all the same?</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>Si tutti</source>
        <translation>Yes to &amp;all</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>No tutti</source>
        <translation>N&amp;o to all</translation>
    </message>
</context>
<context>
    <name>ProceedDialog</name>
    <message>
        <source>Riassunto importazione</source>
        <translation>Import summary</translation>
    </message>
    <message>
        <source>Si vuole procedere alla sincronizzazione automatica con il database?</source>
        <translation>Do you want to synchronize the songs with the database now?</translation>
    </message>
    <message>
        <source>Non mostrare più messaggi sul copyright</source>
        <translation>&amp;Do not show copyright messages again</translation>
    </message>
    <message>
        <source>Si</source>
        <translation>&amp;Yes</translation>
    </message>
    <message>
        <source>No</source>
        <translation>&amp;No</translation>
    </message>
    <message>
        <source>Sono stati esaminti %1 files, trovate %2 songs di cui %3 di (c)K-Ravo</source>
        <translation>Files examined: %1, songs found: %2, of which © K-Ravo: %3</translation>
    </message>
</context>
<context>
    <name>SongsListDialog</name>
    <message>
        <source>Salva lista song</source>
        <translation>Save song list</translation>
    </message>
    <message>
        <source>CF/USB:</source>
        <translation>Fol&amp;der:</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Browse</translation>
    </message>
    <message>
        <source>File:</source>
        <translation>&amp;File:</translation>
    </message>
    <message>
        <source>Ordina per:</source>
        <translation>Sort &amp;by:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Salva</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>C&amp;lose</translation>
    </message>
    <message>
        <source>Scegli nome del file</source>
        <translation>Select file name</translation>
    </message>
    <message>
        <source>Il percorso selezionato non esiste</source>
        <translation>The selected folder does not exist</translation>
    </message>
    <message>
        <source>Il percorso di destinazione non esiste</source>
        <translation>The destination folder does not exist</translation>
    </message>
    <message>
        <source>Operazione completata</source>
        <translation>Operation completed</translation>
    </message>
    <message>
        <source>Impossibile proseguire, la memoria non è preparata per Kavena</source>
        <translation>The list cannot be made: the memory is not prepared for Kavena</translation>
    </message>
    <message>
        <source>Errore durante la creazione del file</source>
        <translation>The file could not be created</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>&amp;Memory:</translation>
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
        <translation>Order of import</translation>
    </message>
</context>
<context>
    <name>StatusSummary</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
    <message>
        <source>mostrate: %1</source>
        <translation>shown: %1</translation>
    </message>
    <message>
        <source>nuove: %1</source>
        <translation>new: %1</translation>
    </message>
    <message>
        <source>sincronizzate: %1</source>
        <translation>synchronized: %1</translation>
    </message>
    <message>
        <source>modificate: %1</source>
        <translation>edited: %1</translation>
    </message>
    <message>
        <source>non sincronizzate: %1</source>
        <translation>not synchronized: %1</translation>
    </message>
    <message numerus="yes">
        <source>%n file non leggibili...</source>
        <translation>
            <numerusform>%n unreadable file...</numerusform>
            <numerusform>%n unreadable files...</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n tag da preparare...</source>
        <translation>
            <numerusform>%n tag to prepare...</numerusform>
            <numerusform>%n tags to prepare...</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>UnreadableFilesDialog</name>
    <message>
        <source>File non leggibili</source>
        <translation>Unreadable files</translation>
    </message>
    <message>
        <source>Questi file non sono stati inseriti &amp;nella lista:</source>
        <translation>These files were &amp;not added to the list:</translation>
    </message>
    <message>
        <source>Il file non esiste</source>
        <translation>The file does not exist</translation>
    </message>
    <message>
        <source>Non è un file normale</source>
        <translation>Not a regular file</translation>
    </message>
    <message>
        <source>Il file non può essere aperto</source>
        <translation>The file cannot be opened</translation>
    </message>
    <message>
        <source>Il file è vuoto</source>
        <translation>The file is empty</translation>
    </message>
    <message>
        <source>Formato non riconosciuto</source>
        <translation>Format not recognized</translation>
    </message>
    <message>
        <source>Il file è danneggiato</source>
        <translation>The file is damaged</translation>
    </message>
</context>
<context>
    <name>UserSongsRelTableModel</name>
    <message>
        <source>Num</source>
        <translation>No.</translation>
    </message>
    <message>
        <source>Formato</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>Bpm</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalita&apos;</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>File name</translation>
    </message>
    <message>
        <source>Cartella</source>
        <translation>Folder</translation>
    </message>
</context>
<context>
    <name>WriteProblem</name>
    <message>
        <source>La memoria non c&apos;è più. È stata estratta?</source>
        <translation>The memory is no longer there. Was it pulled out?</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura.
Togliere la protezione e riprovare.</source>
        <translation>The memory is write-protected.
Remove the protection and try again.</translation>
    </message>
    <message>
        <source>La memoria è piena.
Liberare spazio e riprovare.</source>
        <translation>The memory is full.
Make room and try again.</translation>
    </message>
    <message>
        <source>Manca il permesso di scrivere sulla memoria.</source>
        <translation>You are not allowed to write to the memory.</translation>
    </message>
    <message>
        <source>Non è possibile scrivere sulla memoria.</source>
        <translation>Nothing can be written to the memory.</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>the file is no longer there</translation>
    </message>
    <message>
        <source>una cartella ha già questo nome</source>
        <translation>a folder has this name already</translation>
    </message>
    <message>
        <source>il nome è troppo lungo</source>
        <translation>the name is too long</translation>
    </message>
    <message>
        <source>il file non può essere letto</source>
        <translation>the file cannot be read</translation>
    </message>
    <message>
        <source>la cartella non c&apos;è più (la memoria è stata estratta?)</source>
        <translation>the folder is no longer there (was the memory pulled out?)</translation>
    </message>
    <message>
        <source>la memoria è protetta da scrittura</source>
        <translation>the memory is write-protected</translation>
    </message>
    <message>
        <source>la memoria è piena</source>
        <translation>the memory is full</translation>
    </message>
    <message>
        <source>manca il permesso di scrivere</source>
        <translation>you are not allowed to write there</translation>
    </message>
    <message>
        <source>non può essere scritto</source>
        <translation>it cannot be written</translation>
    </message>
    <message>
        <source>la memoria non ammette questi caratteri nel nome: %1</source>
        <translation>the memory does not allow these characters in a name: %1</translation>
    </message>
    <message>
        <source>la memoria non ammette questo nome</source>
        <translation>the memory does not allow this name</translation>
    </message>
</context>
<context>
    <name>FileListDialog</name>
    <message>
        <source>Nome file</source>
        <translation>File name</translation>
    </message>
    <message>
        <source>Motivo</source>
        <translation>Reason</translation>
    </message>
    <message>
        <source>&amp;Chiudi</source>
        <translation>&amp;Close</translation>
    </message>
</context>
<context>
    <name>MissingLibrary</name>
    <message>
        <source>La lista delle song non è disponibile</source>
        <translation>The song list is not available</translation>
    </message>
    <message>
        <source>Il database delle song non può essere aperto: le song non possono essere elencate, sincronizzate o trasferite.

Controllare che nella cartella dei file temporanei (%1) ci sia spazio e che vi si possa scrivere, poi riavviare il programma.</source>
        <translation>The song list cannot be opened: songs cannot be listed, synchronized or transferred.

Please check that the folder for temporary files (%1) has room and can be written to, then start the program again.</translation>
    </message>
    <message>
        <source>Il programma non è installato per intero: manca il modulo di Qt per i database SQLite. Le song non possono essere elencate, sincronizzate o trasferite.

Installare di nuovo il programma.</source>
        <translation>The program is not completely installed: the Qt module for SQLite databases is missing. Songs cannot be listed, synchronized or transferred.

Please install the program again.</translation>
    </message>
    <message>
        <source>Attenzione</source>
        <translation>Warning</translation>
    </message>
</context>
<context>
    <name>RunReport</name>
    <message numerus="yes">
        <source>%n song non sono state salvate.</source>
        <translation>
            <numerusform>%n song could not be saved.</numerusform>
            <numerusform>%n songs could not be saved.</numerusform>
        </translation>
    </message>
    <message>
        <source>Non salvata: %1</source>
        <translation>Not saved: %1</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura</source>
        <translation>The memory is write-protected</translation>
    </message>
    <message>
        <source>Non c&apos;è più spazio</source>
        <translation>No room left</translation>
    </message>
    <message>
        <source>Il file non c&apos;è più</source>
        <translation>The file is gone</translation>
    </message>
    <message>
        <source>Il file non può essere modificato: mancano i permessi</source>
        <translation>You have no permission to change the file</translation>
    </message>
    <message>
        <source>Il file è in uso da un altro programma</source>
        <translation>Another program is using the file</translation>
    </message>
    <message>
        <source>La memoria dà errori o è stata tolta</source>
        <translation>The memory is faulty or was removed</translation>
    </message>
    <message>
        <source>I dati sono troppi per questo formato</source>
        <translation>The details are too long for this format</translation>
    </message>
    <message>
        <source>Il file non è leggibile</source>
        <translation>The file cannot be read</translation>
    </message>
    <message>
        <source>Il file non può essere scritto</source>
        <translation>The file cannot be written</translation>
    </message>
    <message numerus="yes">
        <source>In %n song ci sono caratteri che il player mostra come &quot;?&quot;.</source>
        <translation>
            <numerusform>In %n song the player shows &quot;?&quot; instead of some characters.</numerusform>
            <numerusform>In %n songs the player shows &quot;?&quot; instead of some characters.</numerusform>
        </translation>
    </message>
    <message>
        <source>&quot;?&quot; al posto di: %1</source>
        <translation>&quot;?&quot; instead of: %1</translation>
    </message>
</context>
<context>
    <name>RunReportBox</name>
    <message>
        <source>Aggiornamento file</source>
        <translation>Save songs</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Show songs...</translation>
    </message>
    <message>
        <source>Nella lista hanno un segnale di avviso. Tenendovi sopra il mouse si legge il motivo.</source>
        <translation>They have a warning sign in the list. Rest the mouse on the row to read the reason.</translation>
    </message>
    <message>
        <source>Dettagli</source>
        <translation>Songs concerned</translation>
    </message>
    <message>
        <source>Queste &amp;song non sono a posto:</source>
        <translation>Something went wrong with these &amp;songs:</translation>
    </message>
</context>
<context>
    <name>Arguments</name>
    <message>
        <source>Argomento sconosciuto: %1</source>
        <translation>Unknown argument: %1</translation>
    </message>
    <message>
        <source>L&apos;opzione vuole un solo valore: %1</source>
        <translation>The option takes exactly one value: %1</translation>
    </message>
    <message>
        <source>Argomenti non validi</source>
        <translation>Invalid arguments</translation>
    </message>
    <message>
        <source>L&apos;opzione non vuole un valore: %1</source>
        <translation>The option takes no value: %1</translation>
    </message>
    <message>
        <source>Valore non valido per %1: %2</source>
        <translation>Invalid value for %1: %2</translation>
    </message>
    <message>
        <source>Manca il comando</source>
        <translation>The command is missing</translation>
    </message>
    <message>
        <source>Manca il dato da modificare, per esempio --title</source>
        <translation>What is to be changed is missing, for example --title</translation>
    </message>
    <message>
        <source>Manca la cartella di destinazione: --to CARTELLA</source>
        <translation>The destination folder is missing: --to FOLDER</translation>
    </message>
    <message>
        <source>Manca un argomento</source>
        <translation>An argument is missing</translation>
    </message>
    <message>
        <source>Mancano i file</source>
        <translation>The files are missing</translation>
    </message>
    <message>
        <source>Troppi argomenti</source>
        <translation>Too many arguments</translation>
    </message>
    <message>
        <source>--json e --csv non vanno insieme</source>
        <translation>--json and --csv do not go together</translation>
    </message>
    <message>
        <source>%1 vale solo con %2</source>
        <translation>%1 needs %2</translation>
    </message>
    <message>
        <source>--csv e --duplicates non vanno insieme</source>
        <translation>--csv and --duplicates do not go together</translation>
    </message>
    <message>
        <source>Un nome è vuoto</source>
        <translation>A name is empty</translation>
    </message>
    <message>
        <source>Manca un passo, per esempio --pattern</source>
        <translation>A step is missing, for example --pattern</translation>
    </message>
    <message>
        <source>Manca il file da scrivere: --to WAV</source>
        <translation>The file to be written is missing: --to WAV</translation>
    </message>
</context>
<context>
    <name>CatalogueCommand</name>
    <message>
        <source>Il catalogo non può essere aperto</source>
        <translation>The catalogue cannot be opened</translation>
    </message>
    <message>
        <source>Non è nel catalogo</source>
        <translation>Not in the catalogue</translation>
    </message>
    <message>
        <source>Non contiene voci</source>
        <translation>Holds no entries</translation>
    </message>
    <message>
        <source>La voce è già nel catalogo. Sostituirla?</source>
        <translation>The entry is in the catalogue already. Replace it?</translation>
    </message>
    <message>
        <source>Non c&apos;è ancora un catalogo</source>
        <translation>There is no catalogue yet</translation>
    </message>
    <message>
        <source>Il file esiste già. Sostituirlo?</source>
        <translation>The file exists already. Replace it?</translation>
    </message>
    <message>
        <source>Catalogo</source>
        <translation>Catalogue</translation>
    </message>
</context>
<context>
    <name>Help</name>
    <message>
        <source>titolo</source>
        <translation>title</translation>
    </message>
    <message>
        <source>interprete</source>
        <translation>artist</translation>
    </message>
    <message>
        <source>genere</source>
        <translation>genre</translation>
    </message>
    <message>
        <source>autore</source>
        <translation>author</translation>
    </message>
    <message>
        <source>tonalità, per esempio C, F# o A-; vuota per nessuna</source>
        <translation>key, for example C, F# or A-; empty for none</translation>
    </message>
    <message>
        <source>tempo, da 0 a 999; 0 per nessuno</source>
        <translation>tempo, 0 to 999; 0 for none</translation>
    </message>
    <message>
        <source>durata in minuti e secondi</source>
        <translation>length in minutes and seconds</translation>
    </message>
    <message>
        <source>copia prima le song in una nuova cartella in DIR</source>
        <translation>first copies the songs into a new folder in DIR</translation>
    </message>
    <message>
        <source>mostra le modifiche e non scrive niente</source>
        <translation>shows the changes and writes nothing</translation>
    </message>
    <message>
        <source>modifica anche le song senza la firma del produttore</source>
        <translation>changes songs without the publisher&apos;s signature as well</translation>
    </message>
    <message>
        <source>la cartella di destinazione, in una memoria</source>
        <translation>the destination folder, on a memory</translation>
    </message>
    <message>
        <source>accorcia i nomi troppo lunghi per il player</source>
        <translation>shortens names that are too long for the player</translation>
    </message>
    <message>
        <source>l&apos;ordine dell&apos;elenco</source>
        <translation>the order of the list</translation>
    </message>
    <message>
        <source>una tabella con i campi separati da &quot;;&quot;</source>
        <translation>a table, fields separated by &quot;;&quot;</translation>
    </message>
    <message>
        <source>un oggetto JSON per riga; i nomi sono nella pagina di manuale</source>
        <translation>one JSON object a line; the manual page tells the names</translation>
    </message>
    <message>
        <source>legge altri nomi dallo standard input, ognuno chiuso da un byte zero</source>
        <translation>reads further names from standard input, each ended by a zero byte</translation>
    </message>
    <message>
        <source>Esempi:</source>
        <translation>Examples:</translation>
    </message>
    <message>
        <source>Uso:</source>
        <translation>Usage:</translation>
    </message>
    <message>
        <source>Opzioni:</source>
        <translation>Options:</translation>
    </message>
    <message>
        <source>mostra questo aiuto</source>
        <translation>shows this help</translation>
    </message>
    <message>
        <source>mostra la versione</source>
        <translation>shows the version</translation>
    </message>
    <message>
        <source>dopo ci sono solo nomi di file</source>
        <translation>only file names follow</translation>
    </message>
    <message>
        <source>Le domande senza risposta nelle opzioni si fanno solo su un terminale; altrove valgono come no.
Stato d&apos;uscita: 0 fatto, 1 fatto in parte, 2 uso errato, 3 niente di fatto.</source>
        <translation>Questions that no option answers are asked on a terminal only; elsewhere the answer is no.
Exit status: 0 done, 1 done with failures, 2 wrong use, 3 nothing done.</translation>
    </message>
    <message>
        <source>rilegge dalla memoria ogni copia e la confronta</source>
        <translation>reads each copy back from the memory and compares it</translation>
    </message>
    <message>
        <source>copia ciò che è nuovo o diverso ed elenca le song in più</source>
        <translation>copies what is new or differs, and lists the other songs</translation>
    </message>
    <message>
        <source>con --in-line: rimuove le song in più, con le loro immagini</source>
        <translation>with --in-line: removes the other songs and their pictures</translation>
    </message>
    <message>
        <source>solo le song che ci sono più volte, per gruppi</source>
        <translation>only the songs that are there more than once, in groups</translation>
    </message>
    <message>
        <source>elimina le song senza chiedere</source>
        <translation>removes the songs without asking</translation>
    </message>
    <message>
        <source>anche una cartella che non è in una memoria</source>
        <translation>also a folder that lies on no memory</translation>
    </message>
    <message>
        <source>modifica anche se la cronologia non può essere usata</source>
        <translation>change songs even if the history cannot be used</translation>
    </message>
    <message>
        <source>annulla anche nelle song cambiate dopo</source>
        <translation>undo also in songs that were changed since</translation>
    </message>
    <message>
        <source>i dati dal nome del file, per esempio %track - %artist - %title</source>
        <translation>details from the file name, for example %track - %artist - %title</translation>
    </message>
    <message>
        <source>un valore per tutte le song</source>
        <translation>one value for all songs</translation>
    </message>
    <message>
        <source>un testo al posto di un altro</source>
        <translation>a text in place of another one</translation>
    </message>
    <message>
        <source>lo stesso con un&apos;espressione regolare</source>
        <translation>the same with a regular expression</translation>
    </message>
    <message>
        <source>le maiuscole non contano nei testi da cercare</source>
        <translation>letter case does not count in what is looked for</translation>
    </message>
    <message>
        <source>maiuscole: title, upper, lower o first</source>
        <translation>letter case: title, upper, lower or first</translation>
    </message>
    <message>
        <source>due campi si scambiano</source>
        <translation>two fields change places</translation>
    </message>
    <message>
        <source>toglie gli spazi in più; &quot;_&quot; diventa uno spazio</source>
        <translation>takes needless blanks away; &quot;_&quot; becomes one</translation>
    </message>
    <message>
        <source>i dati da un elenco, per nome del file</source>
        <translation>details from a list, by file name</translation>
    </message>
    <message>
        <source>i nomi dei file dai dati, per esempio %artist - %title</source>
        <translation>file names from the details, for example %artist - %title</translation>
    </message>
    <message>
        <source>con --rename: solo nomi che il player può mostrare</source>
        <translation>with --rename: only names that the player can show</translation>
    </message>
    <message>
        <source>scrive; altrimenti mostra soltanto</source>
        <translation>writes; else it only shows</translation>
    </message>
    <message>
        <source>scrive ciò che altrimenti viene solo mostrato</source>
        <translation>writes what is otherwise only shown</translation>
    </message>
    <message>
        <source>sostituisce i file, o le voci, che ci sono già</source>
        <translation>replaces files, or entries, that are there already</translation>
    </message>
    <message>
        <source>il file WAV da scrivere</source>
        <translation>the WAV file to be written</translation>
    </message>
    <message>
        <source>il sound font per le song MIDI; altrimenti uno installato</source>
        <translation>the sound font for MIDI songs; else an installed one</translation>
    </message>
</context>
<context>
    <name>IndexCommand</name>
    <message>
        <source>%1: la memoria non è in ordine</source>
        <translation>%1: the memory is not in order</translation>
    </message>
    <message>
        <source>Aggiornamento database</source>
        <translation>Updating the song index</translation>
    </message>
    <message>
        <source>Nessuna song nella memoria</source>
        <translation>No songs on the memory</translation>
    </message>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima di usarla</source>
        <translation>The memory has no complete song index: update it before you use the memory</translation>
    </message>
    <message>
        <source>La cartella non è in una memoria collegata e non ha un database (%1: la prende comunque)</source>
        <translation>The folder lies on no connected memory and has no song index (%1 takes it all the same)</translation>
    </message>
</context>
<context>
    <name>ListCommand</name>
    <message>
        <source>Il database della memoria è danneggiato</source>
        <translation>The song index is damaged</translation>
    </message>
    <message>
        <source>Lettura della memoria</source>
        <translation>Reading the memory</translation>
    </message>
    <message>
        <source>La memoria non è leggibile</source>
        <translation>The memory cannot be read</translation>
    </message>
    <message>
        <source>La cartella non è leggibile</source>
        <translation>The folder cannot be read</translation>
    </message>
    <message>
        <source>Il file non è leggibile</source>
        <translation>The file cannot be read</translation>
    </message>
</context>
<context>
    <name>MemoryCheck</name>
    <message>
        <source>%1 byte non sono un numero intero di record</source>
        <translation>%1 bytes are no whole number of records</translation>
    </message>
    <message>
        <source>Il file manca o non è leggibile: la memoria non ha un database completo</source>
        <translation>The file is missing or cannot be read: the memory has no complete song index</translation>
    </message>
    <message>
        <source>Troppe song: %1</source>
        <translation>Too many songs: %1</translation>
    </message>
    <message>
        <source>Il record %1 di %2 ha un numero di song sbagliato: %3</source>
        <translation>Record %1 of %2 has a wrong song number: %3</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non finisce con zeri</source>
        <translation>Record %1 of %2 does not end in zeros</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non è un percorso della memoria</source>
        <translation>Record %1 of %2 names no file on the memory</translation>
    </message>
    <message>
        <source>La song è elencata due volte</source>
        <translation>The song is listed twice</translation>
    </message>
    <message>
        <source>Il record %1 di %2 non ha una data</source>
        <translation>Record %1 of %2 has no date</translation>
    </message>
    <message>
        <source>Il file non c&apos;è</source>
        <translation>The file is not there</translation>
    </message>
    <message>
        <source>Il file è stato modificato dopo l&apos;aggiornamento</source>
        <translation>The file was changed after the update</translation>
    </message>
    <message>
        <source>La song non è nel database</source>
        <translation>The song is not in the song index</translation>
    </message>
    <message>
        <source>La dimensione non corrisponde al numero di song</source>
        <translation>The size does not fit the number of songs</translation>
    </message>
    <message>
        <source>Non elenca ogni song una volta</source>
        <translation>Does not list each song once</translation>
    </message>
    <message>
        <source>%1 è al posto sbagliato</source>
        <translation>%1 is in the wrong place</translation>
    </message>
    <message>
        <source>Il titolo del record %1 non finisce con zeri</source>
        <translation>The title in record %1 does not end in zeros</translation>
    </message>
    <message>
        <source>Il formato del record %1 non esiste</source>
        <translation>There is no such format as in record %1</translation>
    </message>
    <message>
        <source>Il record %1, %2, è al posto sbagliato</source>
        <translation>Record %1, %2, is in the wrong place</translation>
    </message>
    <message>
        <source>La song %1 del record %2 è elencata due volte o non ha un file</source>
        <translation>Song %1 in record %2 is listed twice or has no file</translation>
    </message>
    <message>
        <source>La song %1 è diversa che in %2</source>
        <translation>Song %1 differs from %2</translation>
    </message>
    <message>
        <source>Song mancanti alla fine: %1</source>
        <translation>Songs missing at the end: %1</translation>
    </message>
    <message>
        <source>Song mancanti prima del gruppo %1: %2</source>
        <translation>Songs missing before the group %1: %2</translation>
    </message>
    <message>
        <source>Il gruppo %1 conta male le song del gruppo precedente: %2 invece di %3</source>
        <translation>The group %1 miscounts the songs of the group before it: %2 instead of %3</translation>
    </message>
    <message>
        <source>L&apos;inizio del gruppo nel record %1 è danneggiato</source>
        <translation>The head of the group in record %1 is damaged</translation>
    </message>
    <message>
        <source>Il gruppo %1 c&apos;è due volte</source>
        <translation>The group %1 is there twice</translation>
    </message>
    <message>
        <source>Il record %1 è una song in più di quelle del suo gruppo</source>
        <translation>Record %1 is one song more than its group has</translation>
    </message>
    <message>
        <source>La song %1 del record %2 è elencata due volte o è diversa che in %3</source>
        <translation>Song %1 in record %2 is listed twice or differs from %3</translation>
    </message>
    <message>
        <source>La song %1 è in un altro gruppo che in %2</source>
        <translation>Song %1 is in another group than in %2</translation>
    </message>
    <message>
        <source>%1 byte invece di %2</source>
        <translation>%1 bytes instead of %2</translation>
    </message>
    <message>
        <source>L&apos;iniziale %1 porta al posto sbagliato</source>
        <translation>The first letter %1 leads to the wrong place</translation>
    </message>
    <message>
        <source>I numeri di song, interpreti e generi non sono quelli degli elenchi</source>
        <translation>The numbers of songs, artists and genres are not those of the lists</translation>
    </message>
    <message>
        <source>La song %1 della playlist non è nella memoria</source>
        <translation>Song %1 of the playlist is not on the memory</translation>
    </message>
    <message>
        <source>La cartella non può essere letta</source>
        <translation>The folder cannot be read</translation>
    </message>
    <message>
        <source>Il nome non è in UTF-8</source>
        <translation>The name has characters that cannot be read</translation>
    </message>
    <message>
        <source>Il percorso supera %1 caratteri</source>
        <translation>The name with all its folders is longer than %1 characters</translation>
    </message>
    <message>
        <source>Il database non mostra ciò che il file dice</source>
        <translation>The song index does not show what the file says</translation>
    </message>
    <message>
        <source>Il file della playlist manca o non è leggibile</source>
        <translation>The playlist&apos;s file is missing or cannot be read</translation>
    </message>
    <message>
        <source>La song non è nel database: il nome differisce da un altro solo per le maiuscole</source>
        <translation>The song is not in the song index: its name differs from another one only in upper and lower case</translation>
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
        <translation>Signature</translation>
    </message>
    <message>
        <source>sì</source>
        <translation>yes</translation>
    </message>
    <message>
        <source>no</source>
        <translation>no</translation>
    </message>
    <message>
        <source>%1: non è nel catalogo</source>
        <translation>%1: not in the catalogue</translation>
    </message>
    <message>
        <source>%1: nessuna modifica</source>
        <translation>%1: no change</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Da copiare: %1; liberi: %2; song nella memoria dopo: %3</source>
        <translation>To copy: %1; free: %2; songs on the memory afterwards: %3</translation>
    </message>
    <message>
        <source>nuova</source>
        <translation>new</translation>
    </message>
    <message>
        <source>già presente</source>
        <translation>already there</translation>
    </message>
    <message>
        <source>diversa</source>
        <translation>differs</translation>
    </message>
    <message>
        <source>già presente con un altro nome</source>
        <translation>already there under another name</translation>
    </message>
    <message>
        <source>stesso nome di un&apos;altra song</source>
        <translation>same name as another song</translation>
    </message>
    <message>
        <source>illeggibile</source>
        <translation>cannot be read</translation>
    </message>
    <message>
        <source>nome non possibile sulla memoria</source>
        <translation>name not possible on the memory</translation>
    </message>
    <message>
        <source>non è nell&apos;elenco</source>
        <translation>not in the list</translation>
    </message>
    <message>
        <source>Gli stessi byte:</source>
        <translation>The same bytes:</translation>
    </message>
    <message>
        <source>Stesso titolo e interprete:</source>
        <translation>Same title and artist:</translation>
    </message>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
    <message>
        <source>%1, annullato</source>
        <translation>%1, undone</translation>
    </message>
    <message>
        <source>Catalogo</source>
        <translation>Catalogue</translation>
    </message>
    <message>
        <source>%1 (stimata)</source>
        <translation>%1 (guessed)</translation>
    </message>
    <message>
        <source>Scritti</source>
        <translation>Written</translation>
    </message>
</context>
<context>
    <name>Program</name>
    <message>
        <source>aiuto: kavena %1--help</source>
        <translation>help: kavena %1--help</translation>
    </message>
    <message>
        <source>Non tutti i dati hanno potuto essere scritti sullo standard output</source>
        <translation>Not everything could be written to standard output</translation>
    </message>
</context>
<context>
    <name>SetCommand</name>
    <message>
        <source>Modifica</source>
        <translation>Changing</translation>
    </message>
    <message>
        <source>%1: %2 accorciato a %3 caratteri: %4</source>
        <translation>%1: %2 cut to %3 characters: %4</translation>
    </message>
</context>
<context>
    <name>ShowCommand</name>
    <message>
        <source>Lettura</source>
        <translation>Reading</translation>
    </message>
</context>
<context>
    <name>SongPaths</name>
    <message>
        <source>L&apos;elenco non può essere letto</source>
        <translation>The list cannot be read</translation>
    </message>
    <message>
        <source>La cartella non può essere letta</source>
        <translation>The folder cannot be read</translation>
    </message>
    <message>
        <source>Il nome non è in UTF-8 e il file non può essere aperto</source>
        <translation>The name is not in UTF-8, and the file cannot be opened</translation>
    </message>
    <message>
        <source>Un nome è vuoto</source>
        <translation>A name is empty</translation>
    </message>
</context>
<context>
    <name>SyncCommand</name>
    <message>
        <source>Il catalogo non può essere aperto</source>
        <translation>The catalogue cannot be opened</translation>
    </message>
    <message>
        <source>Sincronizzazione</source>
        <translation>Synchronizing</translation>
    </message>
    <message>
        <source>Backup</source>
        <translation>Backup</translation>
    </message>
    <message>
        <source>La song non ha la firma del produttore. Modificarla?</source>
        <translation>The song does not have the publisher&apos;s signature. Change it?</translation>
    </message>
    <message>
        <source>%1: non modificata, senza la firma del produttore</source>
        <translation>%1: not changed, without the publisher&apos;s signature</translation>
    </message>
    <message>
        <source>%1: senza la firma del produttore, viene modificata solo se la risposta è sì (%2)</source>
        <translation>%1: without the publisher&apos;s signature, changed only if the answer is yes (%2)</translation>
    </message>
</context>
<context>
    <name>Terminal</name>
    <message>
        <source>Interrotto</source>
        <translation>Stopped</translation>
    </message>
    <message>
        <source>Senza terminale la risposta è no: %1</source>
        <translation>Without a terminal the answer is no: %1</translation>
    </message>
    <message>
        <source>Senza terminale la risposta è no (%1 yes la cambia): %2</source>
        <translation>Without a terminal the answer is no (%1 yes changes it): %2</translation>
    </message>
    <message>
        <source>s</source>
        <translation>y</translation>
    </message>
    <message>
        <source>n</source>
        <translation>n</translation>
    </message>
    <message>
        <source>[%1 = sì, %2 = sì a tutti, %3 = no, %4 = no a tutti]</source>
        <translation>[%1 = yes, %2 = yes to all, %3 = no, %4 = no to all]</translation>
    </message>
</context>
<context>
    <name>PlanExecution</name>
    <message>
        <source>nel frattempo un altro file ha questo nome</source>
        <translation>another file has got this name meanwhile</translation>
    </message>
    <message>
        <source>la sua cartella è un collegamento che porta fuori dalla memoria</source>
        <translation>its folder is a link that leads outside the memory</translation>
    </message>
    <message>
        <source>restano le immagini della song che è stata sostituita</source>
        <translation>the pictures of the song that was replaced are still there</translation>
    </message>
    <message>
        <source>non è più sulla memoria</source>
        <translation>no longer on the memory</translation>
    </message>
    <message>
        <source>esisteva già e non è stata sostituita</source>
        <translation>was there already and was not replaced</translation>
    </message>
    <message>
        <source>un&apos;altra song dell&apos;elenco ha lo stesso nome</source>
        <translation>another song of the list has the same name</translation>
    </message>
    <message>
        <source>è già nella memoria</source>
        <translation>is on the memory already</translation>
    </message>
    <message>
        <source>è già nella memoria come %1</source>
        <translation>is on the memory already as %1</translation>
    </message>
    <message>
        <source>un&apos;altra song dell&apos;elenco ha preso il suo posto</source>
        <translation>another song of the list has taken its place</translation>
    </message>
    <message>
        <source>saltata come scelto nel piano</source>
        <translation>skipped as chosen in the plan</translation>
    </message>
    <message>
        <source>non rimossa, la copia è stata interrotta</source>
        <translation>not removed, copying was stopped</translation>
    </message>
    <message>
        <source>non rimossa, non tutte le song sono state copiate</source>
        <translation>not removed, not all songs were copied</translation>
    </message>
    <message>
        <source>non rimossa, il database della memoria non può essere aggiornato</source>
        <translation>not removed, the song index of the memory cannot be updated</translation>
    </message>
</context>
<context>
    <name>PlannedRemoval</name>
    <message>
        <source>non è più il file di prima</source>
        <translation>no longer the same file</translation>
    </message>
    <message>
        <source>non rimossa, la rimozione è stata interrotta</source>
        <translation>not removed, removing was stopped</translation>
    </message>
</context>
<context>
    <name>TransferCommand</name>
    <message>
        <source>Song con il nome di un&apos;altra song indicata: %1. Con %2 ognuna ha un nome suo.</source>
        <translation>Songs with the name of another given song: %1. With %2 each gets a name of its own.</translation>
    </message>
    <message>
        <source>Song già nella memoria con un nome accorciato, che non vengono copiate di nuovo: %1</source>
        <translation>Songs that are on the memory under a shortened name already and are not copied again: %1</translation>
    </message>
    <message>
        <source>Song della memoria che non sono nell&apos;elenco: %1</source>
        <translation>Songs on the memory that are not in the list: %1</translation>
    </message>
    <message>
        <source>Restano; %1 le rimuove.</source>
        <translation>They stay; %1 removes them.</translation>
    </message>
    <message>
        <source>Nessuna song viene rimossa, perché l&apos;elenco non è completo.</source>
        <translation>No song is removed, because the list is not complete.</translation>
    </message>
    <message>
        <source>Rimuovere queste song dalla memoria?</source>
        <translation>Remove these songs from the memory?</translation>
    </message>
    <message>
        <source>Sono più song di quante il player ne può trovare: %1. Si vuole procedere comunque?</source>
        <translation>These are more songs than the player can find: %1. Continue all the same?</translation>
    </message>
    <message>
        <source>Non è una song e non viene copiato</source>
        <translation>It is no song and is not copied</translation>
    </message>
</context>
<context>
    <name>TransferPlanner</name>
    <message>
        <source>il file non può essere letto</source>
        <translation>the file cannot be read</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>the file is no longer there</translation>
    </message>
    <message>
        <source>è la stessa song, scelta due volte</source>
        <translation>is the same song, chosen twice</translation>
    </message>
    <message>
        <source>per i nomi che iniziano così il player non ha più nomi brevi</source>
        <translation>for names that begin like this the player has no short names left</translation>
    </message>
    <message>
        <source>nella memoria ci sono altre immagini karaoke con il suo nome</source>
        <translation>other karaoke pictures with its name lie on the memory</translation>
    </message>
    <message>
        <source>il percorso è troppo lungo per il player</source>
        <translation>the names of its folders are too long for the player</translation>
    </message>
</context>
<context>
    <name>CopiesFromMemory</name>
    <message>
        <source>La cartella non esiste.</source>
        <translation>The folder does not exist.</translation>
    </message>
    <message>
        <source>La cartella è nella memoria stessa: sceglierne una del computer.</source>
        <translation>The folder is on the memory itself: choose one on the computer.</translation>
    </message>
    <message>
        <source>un&apos;altra song scelta ha lo stesso nome</source>
        <translation>another chosen song has the same name</translation>
    </message>
</context>
<context>
    <name>Eject</name>
    <message>
        <source>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</source>
        <translation>The folder is not a connected memory: there is nothing to eject.</translation>
    </message>
    <message>
        <source>Non tutti i dati sono arrivati sulla memoria. Non scollegarla.</source>
        <translation>Not everything has arrived on the memory. Do not unplug it.</translation>
    </message>
    <message>
        <source>Adesso la memoria si può scollegare.</source>
        <translation>You can unplug the memory now.</translation>
    </message>
    <message>
        <source>Il servizio del sistema che espelle le memorie (UDisks2) non risponde. Espellere la memoria dal file manager.</source>
        <translation>The service of the system that ejects memories (UDisks2) does not answer. Eject the memory in the file manager.</translation>
    </message>
    <message>
        <source>Il sistema non conosce nessuna memoria collegata qui.</source>
        <translation>The system knows of no memory that is connected here.</translation>
    </message>
    <message>
        <source>Il sistema non permette di espellere la memoria.</source>
        <translation>The system does not allow the memory to be ejected.</translation>
    </message>
    <message>
        <source>La memoria è stata smontata, ma il suo lettore è ancora in uso: altre sue partizioni possono essere aperte.</source>
        <translation>The memory was released, but its drive is still in use: other partitions of it may be open.</translation>
    </message>
    <message>
        <source>La memoria è in uso: chiudere i programmi che la usano e riprovare.</source>
        <translation>The memory is in use: close the programs that use it and try again.</translation>
    </message>
    <message>
        <source>La memoria è in uso da: %1. Chiudere questi programmi e riprovare.</source>
        <translation>The memory is in use by: %1. Close these programs and try again.</translation>
    </message>
    <message>
        <source>Non è stato possibile espellere la memoria.</source>
        <translation>The memory could not be ejected.</translation>
    </message>
</context>
<context>
    <name>RemoveCommand</name>
    <message numerus="yes">
        <source>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</source>
        <translation>
            <numerusform>%n song is going to be removed from the memory with its karaoke pictures. Go on?</numerusform>
            <numerusform>%n songs are going to be removed from the memory with their karaoke pictures. Go on?</numerusform>
        </translation>
    </message>
    <message>
        <source>La cartella è dentro una memoria: indicare la memoria, %1</source>
        <translation>The folder lies on a memory: name the memory itself, %1</translation>
    </message>
</context>
<context>
    <name>SongChanges</name>
    <message>
        <source>Eliminazione</source>
        <translation>Removal</translation>
    </message>
    <message>
        <source>Eliminazione song...</source>
        <translation>Removing songs...</translation>
    </message>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima</source>
        <translation>The memory has no complete song index: update it first</translation>
    </message>
    <message>
        <source>il suo ultimo salvataggio non è stato completato</source>
        <translation>its last save was not finished</translation>
    </message>
    <message>
        <source>non è stato possibile rinominarla</source>
        <translation>it could not be renamed</translation>
    </message>
    <message>
        <source>la memoria non ha confermato il nuovo nome</source>
        <translation>the memory did not confirm the new name</translation>
    </message>
    <message>
        <source>Aggiornamento</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Aggiornamento database...</source>
        <translation>Updating the song index...</translation>
    </message>
    <message>
        <source>Il database della memoria è danneggiato, o la memoria non si può scrivere. Non è stato cambiato nulla.</source>
        <translation>The song index of the memory is damaged, or the memory cannot be written to. Nothing was changed.</translation>
    </message>
    <message>
        <source>Salvataggio</source>
        <translation>Saving</translation>
    </message>
    <message>
        <source>Salvataggio song...</source>
        <translation>Saving songs...</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>The memory is no longer connected.</translation>
    </message>
    <message>
        <source>Il database della memoria è danneggiato: rigenerarlo.</source>
        <translation>The song index of the memory is damaged: rebuild it.</translation>
    </message>
    <message>
        <source>Nella memoria non ci sono song.</source>
        <translation>There are no songs on the memory.</translation>
    </message>
    <message>
        <source>Non è stato possibile aggiornare il database. Assicurarsi che la memoria abbia spazio libero e che non sia protetta da scrittura.</source>
        <translation>The song index could not be updated. Make sure that the memory has enough free space and is not write-protected.</translation>
    </message>
</context>
<context>
    <name>SongName</name>
    <message>
        <source>il nome deve finire con .%1</source>
        <translation>the name must end in .%1</translation>
    </message>
    <message>
        <source>con la cartella il nome supera %1 caratteri</source>
        <translation>with its folder the name has more than %1 characters</translation>
    </message>
    <message>
        <source>è il nome che ha già</source>
        <translation>it has this name already</translation>
    </message>
    <message>
        <source>un altro file ha già questo nome</source>
        <translation>another file has this name already</translation>
    </message>
    <message>
        <source>ci sono già immagini karaoke con questo nome</source>
        <translation>there are karaoke pictures of this name already</translation>
    </message>
    <message>
        <source>il nome è vuoto</source>
        <translation>the name is empty</translation>
    </message>
    <message>
        <source>il nome supera %1 caratteri</source>
        <translation>the name has more than %1 characters</translation>
    </message>
    <message>
        <source>questi caratteri non sono permessi: %1</source>
        <translation>these characters are not allowed: %1</translation>
    </message>
    <message>
        <source>il player non ha uno dei caratteri</source>
        <translation>the player lacks one of the characters</translation>
    </message>
    <message>
        <source>il nome non può iniziare o finire con un punto o uno spazio</source>
        <translation>the name must not begin or end with a dot or a blank</translation>
    </message>
    <message>
        <source>questo nome è riservato dai computer</source>
        <translation>computers keep this name for themselves</translation>
    </message>
</context>
<context>
    <name>SongRemoval</name>
    <message>
        <source>non è una song della memoria</source>
        <translation>it is no song of the memory</translation>
    </message>
    <message>
        <source>è in una cartella riservata</source>
        <translation>it lies in a reserved folder</translation>
    </message>
    <message>
        <source>ci porta un collegamento: potrebbe trovarsi fuori dalla memoria</source>
        <translation>a link leads to it: it may lie outside the memory</translation>
    </message>
    <message>
        <source>il file non c&apos;è</source>
        <translation>the file is not there</translation>
    </message>
    <message>
        <source>non è stato possibile eliminarla</source>
        <translation>it could not be removed</translation>
    </message>
    <message>
        <source>la song è stata eliminata, ma non le sue immagini: %1</source>
        <translation>the song was removed, but not its pictures: %1</translation>
    </message>
    <message>
        <source>la memoria non ha confermato l&apos;eliminazione</source>
        <translation>the memory did not confirm the removal</translation>
    </message>
</context>
<context>
    <name>PlannedName</name>
    <message>
        <source>un&apos;altra song del piano ha questo nome</source>
        <translation>another song of the plan has this name</translation>
    </message>
</context>
<context>
    <name>TransferPlanModel</name>
    <message>
        <source>Diverso per ogni song</source>
        <translation>Different for each song</translation>
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
        <translation>What happens</translation>
    </message>
    <message>
        <source>Nella memoria</source>
        <translation>On the memory</translation>
    </message>
    <message>
        <source>Spazio</source>
        <translation>Space</translation>
    </message>
    <message>
        <source>Niente da fare</source>
        <translation>Nothing to do</translation>
    </message>
    <message>
        <source>Resta</source>
        <translation>Stays</translation>
    </message>
    <message>
        <source>Salta</source>
        <translation>Skip</translation>
    </message>
    <message>
        <source>Copia</source>
        <translation>Copy</translation>
    </message>
    <message>
        <source>Copia con un nome nuovo</source>
        <translation>Copy under a new name</translation>
    </message>
    <message>
        <source>Tieni entrambe (nome nuovo)</source>
        <translation>Keep both (new name)</translation>
    </message>
    <message>
        <source>Sostituisci</source>
        <translation>Replace</translation>
    </message>
    <message>
        <source>Copia in una sottocartella</source>
        <translation>Copy into a subfolder</translation>
    </message>
    <message>
        <source>Rimuovi dalla memoria</source>
        <translation>Remove from the memory</translation>
    </message>
    <message>
        <source>Nuove</source>
        <translation>New</translation>
    </message>
    <message>
        <source>Già presenti</source>
        <translation>Already there</translation>
    </message>
    <message>
        <source>Presenti, ma diverse</source>
        <translation>There, but different</translation>
    </message>
    <message>
        <source>Presenti con un nome accorciato</source>
        <translation>There under a shortened name</translation>
    </message>
    <message>
        <source>Nome già usato da un&apos;altra song dell&apos;elenco</source>
        <translation>Name taken by another selected song</translation>
    </message>
    <message>
        <source>Non leggibili</source>
        <translation>Cannot be read</translation>
    </message>
    <message>
        <source>Nome non adatto alla memoria o al player</source>
        <translation>Name that the memory or the player cannot hold</translation>
    </message>
    <message>
        <source>Nella memoria, ma non nell&apos;elenco</source>
        <translation>On the memory, but not selected</translation>
    </message>
</context>
<context>
    <name>RemedyPanel</name>
    <message>
        <source>&amp;Che cosa fare:</source>
        <translation>&amp;What to do:</translation>
    </message>
    <message>
        <source>Diverso per ogni song</source>
        <translation>Different for each song</translation>
    </message>
    <message>
        <source>&amp;Nome:</source>
        <translation>&amp;Name:</translation>
    </message>
    <message>
        <source>Seleziona nell&apos;elenco le song di cui vuoi decidere.</source>
        <translation>Select the songs above that you want to decide about.</translation>
    </message>
    <message>
        <source>Song selezionate: %1</source>
        <translation>Selected songs: %1</translation>
    </message>
</context>
<context>
    <name>TransferPlanDialog</name>
    <message>
        <source>Piano di trasferimento</source>
        <translation>Transfer plan</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>Folder:</translation>
    </message>
    <message>
        <source>&amp;Allinea: elenca anche le song della memoria da poter rimuovere</source>
        <translation>&amp;Bring in line: also list the memory&apos;s songs that can be removed</translation>
    </message>
    <message>
        <source>Elenca le song della cartella che non sono tra quelle scelte. Vengono rimosse solo quelle che spunti.</source>
        <translation>Lists the songs of the folder that are not among the selected ones. Only those that you tick are removed.</translation>
    </message>
    <message>
        <source>&amp;Rileggi e confronta ogni file copiato</source>
        <translation>&amp;Read back and compare each copied file</translation>
    </message>
    <message>
        <source>Vale anche per i prossimi trasferimenti. La copia dura di più.</source>
        <translation>Holds for future transfers, too. Copying takes longer.</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Copia &amp;senza piano</source>
        <translation>Copy with&amp;out the plan</translation>
    </message>
    <message>
        <source>Copia ogni song con il suo nome e chiede prima di sostituirne una.</source>
        <translation>Copies each song under its own name and asks before one is replaced.</translation>
    </message>
    <message>
        <source>&amp;Esegui</source>
        <translation>&amp;Carry out</translation>
    </message>
    <message>
        <source>Ecco che cosa succederebbe alle song scelte.</source>
        <translation>This is what would happen to the selected songs.</translation>
    </message>
    <message>
        <source>Alcune song hanno lo stesso nome: nella memoria ne resterebbe una sola.</source>
        <translation>Some songs have the same name: only one of them would be left on the memory.</translation>
    </message>
    <message>
        <source>Alcune song sono già nella memoria con un nome accorciato: ci sarebbero due volte.</source>
        <translation>Some songs are already on the memory under a shortened name: they would be there twice.</translation>
    </message>
    <message>
        <source>Lo spazio libero nella memoria non basta per tutte le song.</source>
        <translation>There is not enough free space on the memory for all songs.</translation>
    </message>
    <message>
        <source>Il player non può trovare così tante song.</source>
        <translation>The player cannot find so many songs.</translation>
    </message>
    <message>
        <source>Non è stato ancora copiato niente.</source>
        <translation>Nothing has been copied yet.</translation>
    </message>
    <message>
        <source>Servono %1. Lo spazio libero non è noto.</source>
        <translation>Needed: %1. How much space is free is not known.</translation>
    </message>
    <message>
        <source>Occupati: %1 di %2. Servono: %3. Liberi: %4.</source>
        <translation>Used: %1 of %2. Needed: %3. Free: %4.</translation>
    </message>
    <message>
        <source>Song aggiunte: %1. Sostituite: %2. Rimosse: %3. Song nella memoria dopo il trasferimento: %4.</source>
        <translation>Songs added: %1. Replaced: %2. Removed: %3. Songs on the memory after the transfer: %4.</translation>
    </message>
    <message>
        <source>Niente da copiare né da rimuovere: «Esegui» aggiorna soltanto il database della memoria.</source>
        <translation>Nothing to copy or to remove: “Carry out” only updates the song index of the memory.</translation>
    </message>
    <message>
        <source>Song scelte che non vengono copiate: %1</source>
        <translation>Selected songs that are not copied: %1</translation>
    </message>
    <message>
        <source>La song non può avere questo nome: %1</source>
        <translation>The song cannot have this name: %1</translation>
    </message>
    <message>
        <source>Lo spazio libero non basta: mancano %1. Decidi quali song saltare.</source>
        <translation>There is not enough free space: %1 more is needed. Decide which songs to skip.</translation>
    </message>
    <message>
        <source>Song da rimuovere dalla memoria: %1
Vengono cancellate per sempre, con le loro immagini karaoke. Rimuoverle?</source>
        <translation>Songs to remove from the memory: %1
They are deleted for good, with their karaoke pictures. Remove them?</translation>
    </message>
    <message>
        <source>Troppe song per il player: %1, il massimo è %2. Decidi quali song saltare.</source>
        <translation>Too many songs for the player: %1, the most it can find is %2. Decide which songs to skip.</translation>
    </message>
    <message>
        <source>Nella cartella non ci sono altre song.</source>
        <translation>There are no other songs in the folder.</translation>
    </message>
</context>
<context>
    <name>Memories</name>
    <message>
        <source>Memoria</source>
        <translation>Memory</translation>
    </message>
    <message>
        <source>Espulsione della memoria...</source>
        <translation>Ejecting the memory...</translation>
    </message>
</context>
<context>
    <name>MemoryCare</name>
    <message>
        <source>Lettura della memoria...</source>
        <translation>Reading the memory...</translation>
    </message>
    <message>
        <source>La lettura è stata interrotta.</source>
        <translation>Reading was stopped.</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>The memory is no longer connected.</translation>
    </message>
    <message>
        <source>Confronto dei file...</source>
        <translation>Comparing files...</translation>
    </message>
    <message>
        <source>Il confronto è stato interrotto.</source>
        <translation>Comparing was stopped.</translation>
    </message>
    <message numerus="yes">
        <source>%n gruppi di file uguali</source>
        <translation>
            <numerusform>%n group of equal files</numerusform>
            <numerusform>%n groups of equal files</numerusform>
        </translation>
    </message>
    <message>
        <source>Controllo della memoria...</source>
        <translation>Checking the memory...</translation>
    </message>
    <message>
        <source>Il database è aggiornato.</source>
        <translation>The song index is up to date.</translation>
    </message>
    <message>
        <source>Il database viene creato da capo: può durare alcuni minuti. Le playlist conservano le loro song. Procedere?</source>
        <translation>The song index is going to be rebuilt, which may take some minutes. The playlists keep their songs. Go on?</translation>
    </message>
    <message>
        <source>Il database è stato rigenerato.</source>
        <translation>The song index was rebuilt.</translation>
    </message>
    <message>
        <source>Le song perdute tornano nelle playlist, dove l&apos;ultimo aggiornamento ha annotato quali erano. Il resto delle playlist non cambia. Procedere?</source>
        <translation>Lost songs come back into the playlists where the last update has noted which ones they were. Nothing else in the playlists changes. Go on?</translation>
    </message>
    <message numerus="yes">
        <source>%n playlist non si possono leggere o scrivere.</source>
        <translation>
            <numerusform>%n playlist cannot be read or written.</numerusform>
            <numerusform>%n playlists cannot be read or written.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono di nuovo nelle playlist.</source>
        <translation>
            <numerusform>%n song is in the playlists again.</numerusform>
            <numerusform>%n songs are in the playlists again.</numerusform>
        </translation>
    </message>
    <message>
        <source>Espulsione della memoria...</source>
        <translation>Ejecting the memory...</translation>
    </message>
    <message>
        <source>Memoria</source>
        <translation>Memory</translation>
    </message>
    <message numerus="yes">
        <source>%n song non sono state cambiate.</source>
        <translation>
            <numerusform>%n song was not changed.</numerusform>
            <numerusform>%n songs were not changed.</numerusform>
        </translation>
    </message>
    <message>
        <source>Il lavoro è stato interrotto: le altre song sono come prima.</source>
        <translation>The work was stopped: the other songs are as before.</translation>
    </message>
    <message>
        <source>Il database della memoria non è stato aggiornato.</source>
        <translation>The song index of the memory was not updated.</translation>
    </message>
    <message>
        <source>Il database non ha accettato tutte le song.</source>
        <translation>The song index did not take all songs.</translation>
    </message>
    <message>
        <source>Il controllo è stato interrotto.</source>
        <translation>The check was stopped.</translation>
    </message>
</context>
<context>
    <name>MemoryCheckPage</name>
    <message numerus="yes">
        <source>e altri %n</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message>
        <source>Il controllo confronta database, playlist e file tra loro. Non cambia nulla.</source>
        <translation>The check compares song index, playlists and files with each other. It changes nothing.</translation>
    </message>
    <message>
        <source>La memoria è in ordine.</source>
        <translation>The memory is in order.</translation>
    </message>
    <message>
        <source>La memoria non è in ordine. Accanto a ogni punto sta che cosa aiuta.</source>
        <translation>The memory is not in order. Beside each point you see what helps.</translation>
    </message>
    <message>
        <source>Il player non trova nessuna song: il database non è completo</source>
        <translation>The player finds no songs: the song index is not complete</translation>
    </message>
    <message>
        <source>Song che il player elenca, ma che non ci sono più</source>
        <translation>Songs that the player lists, but that are gone</translation>
    </message>
    <message>
        <source>Song modificate: il player ne mostra ancora i dati vecchi</source>
        <translation>Changed songs: the player still shows the old details</translation>
    </message>
    <message>
        <source>Song che il player non trova ancora</source>
        <translation>Songs that the player does not find yet</translation>
    </message>
    <message>
        <source>Song perdute nelle playlist</source>
        <translation>Lost songs in the playlists</translation>
    </message>
    <message>
        <source>Più song di quante il player ne conti</source>
        <translation>More songs than the player can count</translation>
    </message>
    <message>
        <source>Il player cerca in un ordine sbagliato</source>
        <translation>The player searches in a wrong order</translation>
    </message>
    <message>
        <source>Il database è danneggiato</source>
        <translation>The song index is damaged</translation>
    </message>
    <message>
        <source>eliminare song</source>
        <translation>remove songs</translation>
    </message>
    <message>
        <source>Song di cui il player mostra dati che nel file non ci sono</source>
        <translation>Songs of which the player shows details that are not in the file</translation>
    </message>
    <message>
        <source>Song che con le loro cartelle hanno un nome troppo lungo per il player</source>
        <translation>Songs whose name with all its folders is too long for the player</translation>
    </message>
    <message>
        <source>Cartelle che non si possono leggere</source>
        <translation>Folders that cannot be read</translation>
    </message>
    <message>
        <source>Nomi con caratteri che non si possono leggere</source>
        <translation>Names with characters that cannot be read</translation>
    </message>
    <message>
        <source>dare un altro nome nel file manager</source>
        <translation>rename in the file manager</translation>
    </message>
    <message>
        <source>controllare la memoria con gli strumenti del sistema</source>
        <translation>check the memory with the tools of the operating system</translation>
    </message>
    <message>
        <source>Playlist che il player elenca, ma che non può leggere</source>
        <translation>Playlists that the player lists but cannot read</translation>
    </message>
    <message>
        <source>eliminare la playlist sul player</source>
        <translation>delete the playlist on the player</translation>
    </message>
</context>
<context>
    <name>MemoryContents</name>
    <message>
        <source>La memoria non è collegata.</source>
        <translation>The memory is not connected.</translation>
    </message>
    <message>
        <source>La memoria non è più collegata.</source>
        <translation>The memory is no longer connected.</translation>
    </message>
    <message>
        <source>Questa cartella non è su una memoria e non ha un database: qui non si cambia nulla.</source>
        <translation>This folder is on no memory and has no song index: nothing is changed here.</translation>
    </message>
    <message>
        <source>Il database è danneggiato: rigenerarlo nella scheda &quot;Controllo&quot; prima di cambiare le song.</source>
        <translation>The song index is damaged: rebuild it on the page &quot;Check&quot; before songs are changed.</translation>
    </message>
    <message>
        <source>La memoria è protetta da scrittura.</source>
        <translation>The memory is write-protected.</translation>
    </message>
</context>
<context>
    <name>MemoryDuplicatesPage</name>
    <message>
        <source>Lo stesso file</source>
        <translation>Same file</translation>
    </message>
    <message>
        <source>Stesso titolo e artista</source>
        <translation>Same title and artist</translation>
    </message>
    <message>
        <source>Nessuna song è doppia.</source>
        <translation>No song is there twice.</translation>
    </message>
    <message>
        <source>Nessuna song ha lo stesso titolo e artista di un&apos;altra.</source>
        <translation>No song has the title and artist of another.</translation>
    </message>
    <message>
        <source>Scegliere con la spunta le song da eliminare. Stesso titolo e artista possono essere due versioni: controllare prima.</source>
        <translation>Tick the songs to be removed. The same title and artist may be two versions: check first.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; trova anche i file uguali con nomi e titoli diversi.</source>
        <translation>&quot;%1&quot; also finds equal files with different names and titles.</translation>
    </message>
</context>
<context>
    <name>MemoryPlaylistsPage</name>
    <message>
        <source>Nella memoria non ci sono playlist.</source>
        <translation>There are no playlists on the memory.</translation>
    </message>
    <message>
        <source>Le playlist si cambiano sul player. Una song perduta è una che il player non trova più.</source>
        <translation>Playlists are changed on the player. A lost song is one that the player no longer finds.</translation>
    </message>
    <message>
        <source>Playlist %1 – non si può leggere</source>
        <translation>Playlist %1 – cannot be read</translation>
    </message>
    <message numerus="yes">
        <source>Playlist %1 – %n song</source>
        <translation>
            <numerusform>Playlist %1 – %n song</numerusform>
            <numerusform>Playlist %1 – %n songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n perdute</source>
        <translation>
            <numerusform>%n lost</numerusform>
            <numerusform>%n lost</numerusform>
        </translation>
    </message>
    <message>
        <source>(song perduta)</source>
        <translation>(lost song)</translation>
    </message>
</context>
<context>
    <name>MemorySongWork</name>
    <message>
        <source>Memoria</source>
        <translation>Memory</translation>
    </message>
    <message>
        <source>Di queste song non c&apos;è più il file. &quot;Aggiorna&quot; nella scheda &quot;Controllo&quot; le toglie dal database.</source>
        <translation>These songs have no files any more. &quot;Update&quot; on the page &quot;Check&quot; takes them out of the song index.</translation>
    </message>
    <message>
        <source>Queste song sono in cartelle che non si possono leggere: controllare la memoria con gli strumenti del sistema.</source>
        <translation>These songs are in folders that cannot be read: check the memory with the tools of the operating system.</translation>
    </message>
    <message>
        <source>un altro programma l&apos;ha cambiata: rileggere la memoria</source>
        <translation>another program has changed it: read the memory again</translation>
    </message>
    <message numerus="yes">
        <source>%n song eliminate dalla memoria.</source>
        <translation>
            <numerusform>%n song was removed from the memory.</numerusform>
            <numerusform>%n songs were removed from the memory.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>e altre %n</source>
        <translation>
            <numerusform>and %n more</numerusform>
            <numerusform>and %n more</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>Attenzione: di %n gruppi non rimane nessuna song!</source>
        <translation>
            <numerusform>Attention: of %n group no song is left!</numerusform>
            <numerusform>Attention: of %n groups no song is left!</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song verranno eliminate dalla memoria con le loro immagini karaoke. Procedere?</source>
        <translation>
            <numerusform>%n song is going to be removed from the memory with its karaoke pictures. Go on?</numerusform>
            <numerusform>%n songs are going to be removed from the memory with their karaoke pictures. Go on?</numerusform>
        </translation>
    </message>
    <message>
        <source>La song si chiama ora %1.</source>
        <translation>The song is now called %1.</translation>
    </message>
    <message numerus="yes">
        <source>%n song salvate.</source>
        <translation>
            <numerusform>%n song saved.</numerusform>
            <numerusform>%n songs saved.</numerusform>
        </translation>
    </message>
    <message>
        <source>Scegli cartella</source>
        <translation>Select folder</translation>
    </message>
    <message>
        <source>Copia song...</source>
        <translation>Copying songs...</translation>
    </message>
    <message numerus="yes">
        <source>%n song copiate sul computer.</source>
        <translation>
            <numerusform>%n song copied to the computer.</numerusform>
            <numerusform>%n songs copied to the computer.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n c&apos;erano già e restano.</source>
        <translation>
            <numerusform>%n was there already and stays.</numerusform>
            <numerusform>%n were there already and stay.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song non sono state copiate.</source>
        <translation>
            <numerusform>%n song was not copied.</numerusform>
            <numerusform>%n songs were not copied.</numerusform>
        </translation>
    </message>
    <message>
        <source>Non è stato possibile aprire la cartella %1.</source>
        <translation>The folder %1 could not be opened.</translation>
    </message>
    <message>
        <source>La copia è stata interrotta.</source>
        <translation>The copying was stopped.</translation>
    </message>
</context>
<context>
    <name>MemorySongsModel</name>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Artista</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
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
        <translation>Sections</translation>
    </message>
    <message>
        <source>.cdg</source>
        <translation>.cdg</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>State</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Sì</source>
        <translation>Yes</translation>
    </message>
    <message>
        <source>non ancora nel database</source>
        <translation>not yet in the song index</translation>
    </message>
    <message>
        <source>modificata dopo l&apos;aggiornamento</source>
        <translation>changed since the update</translation>
    </message>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>the file is gone</translation>
    </message>
    <message>
        <source>cartella non leggibile</source>
        <translation>folder cannot be read</translation>
    </message>
    <message>
        <source>il player non legge il tag</source>
        <translation>the player cannot read the tag</translation>
    </message>
    <message>
        <source>doppia</source>
        <translation>duplicate</translation>
    </message>
    <message>
        <source>nel database</source>
        <translation>in the song index</translation>
    </message>
</context>
<context>
    <name>MemorySongsPage</name>
    <message numerus="yes">
        <source>%n song</source>
        <translation>
            <numerusform>%n song</numerusform>
            <numerusform>%n songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%1 di %n song</source>
        <translation>
            <numerusform>%1 of %n song</numerusform>
            <numerusform>%1 of %n songs</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n scelte</source>
        <translation>
            <numerusform>%n selected</numerusform>
            <numerusform>%n selected</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MemoryWindow</name>
    <message>
        <source>Memoria</source>
        <translation>Memory</translation>
    </message>
    <message>
        <source>Memoria:</source>
        <translation>&amp;Memory:</translation>
    </message>
    <message>
        <source>Altra cartella...</source>
        <translation>Other folder...</translation>
    </message>
    <message>
        <source>Cartella:</source>
        <translation>&amp;Folder:</translation>
    </message>
    <message>
        <source>Rileggi</source>
        <translation>Read again</translation>
    </message>
    <message>
        <source>Spazio occupato</source>
        <translation>Used space</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Songs</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Search:</translation>
    </message>
    <message>
        <source>Song della memoria</source>
        <translation>Songs on the memory</translation>
    </message>
    <message>
        <source>Modifica...</source>
        <translation>Edit...</translation>
    </message>
    <message>
        <source>Rinomina...</source>
        <translation>Rename...</translation>
    </message>
    <message>
        <source>Copia sul computer...</source>
        <translation>Copy to computer...</translation>
    </message>
    <message>
        <source>Apri cartella</source>
        <translation>Open folder</translation>
    </message>
    <message>
        <source>Elimina dalla memoria...</source>
        <translation>Remove from memory...</translation>
    </message>
    <message>
        <source>Playlist</source>
        <translation>Playlists</translation>
    </message>
    <message>
        <source>Playlist della memoria</source>
        <translation>Playlists on the memory</translation>
    </message>
    <message>
        <source>Song della playlist</source>
        <translation>Songs of the playlist</translation>
    </message>
    <message>
        <source>Doppie</source>
        <translation>Duplicates</translation>
    </message>
    <message>
        <source>Song doppie</source>
        <translation>Duplicate songs</translation>
    </message>
    <message>
        <source>Dimensione</source>
        <translation>Size</translation>
    </message>
    <message>
        <source>Confronta i file</source>
        <translation>Compare files</translation>
    </message>
    <message>
        <source>Elimina le song scelte...</source>
        <translation>Remove ticked songs...</translation>
    </message>
    <message>
        <source>Controllo</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>Risultato del controllo</source>
        <translation>Result of the check</translation>
    </message>
    <message>
        <source>Che cosa non va</source>
        <translation>What is wrong</translation>
    </message>
    <message>
        <source>Che cosa aiuta</source>
        <translation>What helps</translation>
    </message>
    <message>
        <source>Controlla</source>
        <translation>Check</translation>
    </message>
    <message>
        <source>Aggiorna</source>
        <translation>Update</translation>
    </message>
    <message>
        <source>Rigenera...</source>
        <translation>Rebuild...</translation>
    </message>
    <message>
        <source>Ripara le playlist...</source>
        <translation>Restore playlists...</translation>
    </message>
    <message>
        <source>Avanzamento</source>
        <translation>Progress</translation>
    </message>
    <message>
        <source>Interrompi</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Espelli</source>
        <translation>Eject</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>La cartella non è una memoria collegata: non c&apos;è niente da espellere.</source>
        <translation>The folder is not a connected memory: there is nothing to eject.</translation>
    </message>
    <message>
        <source>Il servizio del sistema che espelle le memorie non risponde. Espellere la memoria dal file manager.</source>
        <translation>The service of the system that ejects memories does not answer. Eject the memory in the file manager.</translation>
    </message>
    <message numerus="yes">
        <source>%n cartelle non leggibili</source>
        <translation>
            <numerusform>%n folder cannot be read</numerusform>
            <numerusform>%n folders cannot be read</numerusform>
        </translation>
    </message>
    <message>
        <source>Scegliere una memoria</source>
        <translation>Select a memory</translation>
    </message>
    <message>
        <source>senza database: il player non trova nessuna song</source>
        <translation>no song index: the player finds no songs</translation>
    </message>
    <message>
        <source>database danneggiato, del %1</source>
        <translation>song index damaged, of %1</translation>
    </message>
    <message>
        <source>database del %1</source>
        <translation>song index of %1</translation>
    </message>
    <message numerus="yes">
        <source>di %n giorni fa</source>
        <translation>
            <numerusform>%n day ago</numerusform>
            <numerusform>%n days ago</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>mancano %n song</source>
        <translation>
            <numerusform>%n song is missing</numerusform>
            <numerusform>%n songs are missing</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song modificate</source>
        <translation>
            <numerusform>%n song changed</numerusform>
            <numerusform>%n songs changed</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song senza file</source>
        <translation>
            <numerusform>%n song without file</numerusform>
            <numerusform>%n songs without files</numerusform>
        </translation>
    </message>
    <message>
        <source>completo</source>
        <translation>complete</translation>
    </message>
    <message>
        <source>%1 occupati, %2 liberi di %3</source>
        <translation>%1 used, %2 free of %3</translation>
    </message>
    <message>
        <source>Aggiorna il database</source>
        <translation>Update the song index</translation>
    </message>
    <message>
        <source>Rigenera il database...</source>
        <translation>Rebuild the song index...</translation>
    </message>
</context>
<context>
    <name>PlaylistRepair</name>
    <message>
        <source>La memoria non ha un database completo: aggiornarlo prima.</source>
        <translation>The memory has no complete song index: update it first.</translation>
    </message>
    <message>
        <source>Non è stato possibile leggere le playlist.</source>
        <translation>The playlists could not be read.</translation>
    </message>
</context>
<context>
    <name>RenameSongDialog</name>
    <message>
        <source>Rinomina song</source>
        <translation>Rename song</translation>
    </message>
    <message numerus="yes">
        <source>Nuovo nome, al massimo %n caratteri:</source>
        <translation>
            <numerusform>New &amp;name, at most %n character:</numerusform>
            <numerusform>New &amp;name, at most %n characters:</numerusform>
        </translation>
    </message>
    <message>
        <source>Rinomina</source>
        <translation>&amp;Rename</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>&amp;Cancel</translation>
    </message>
</context>
<context>
    <name>CheckFindings</name>
    <message numerus="yes">
        <source>(e altri %n di questo tipo)</source>
        <translation>
            <numerusform>(and %n more of this kind)</numerusform>
            <numerusform>(and %n more of this kind)</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>CommandHistory</name>
    <message>
        <source>Continuare senza cronologia? Le modifiche non potranno essere annullate.</source>
        <translation>Go on without a history? The changes cannot be undone then.</translation>
    </message>
    <message>
        <source>Le altre song non sono state modificate</source>
        <translation>The other songs have not been changed</translation>
    </message>
</context>
<context>
    <name>History</name>
    <message>
        <source>Sincronizzazione</source>
        <translation>Synchronization</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Edit</translation>
    </message>
    <message>
        <source>Modifica di più song</source>
        <translation>Edit of several songs</translation>
    </message>
    <message>
        <source>Preparazione dei tag MP3</source>
        <translation>Preparation of MP3 tags</translation>
    </message>
    <message>
        <source>Nuovi nomi</source>
        <translation>Renaming</translation>
    </message>
    <message>
        <source>Annullamento</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>Misura</source>
        <translation>Measuring</translation>
    </message>
    <message>
        <source>La cronologia è di una versione più recente del programma.</source>
        <translation>The history was made by a later version of the program.</translation>
    </message>
    <message>
        <source>La cronologia è danneggiata.</source>
        <translation>The history is damaged.</translation>
    </message>
    <message>
        <source>La cronologia non può essere scritta: il disco è pieno o guasto.</source>
        <translation>The history cannot be written: the drive is full or broken.</translation>
    </message>
    <message>
        <source>come il lavoro l&apos;ha lasciata</source>
        <translation>as it was left</translation>
    </message>
    <message>
        <source>spostata</source>
        <translation>moved</translation>
    </message>
    <message>
        <source>è già come prima</source>
        <translation>already as before</translation>
    </message>
    <message>
        <source>cambiata dopo</source>
        <translation>changed since</translation>
    </message>
    <message>
        <source>non c&apos;è più</source>
        <translation>no longer there</translation>
    </message>
    <message numerus="yes">
        <source>La cronologia è piena: %n lavori più vecchi non possono più essere annullati.</source>
        <translation>
            <numerusform>The history is full: the oldest job can no longer be undone.</numerusform>
            <numerusform>The history is full: the %n oldest jobs can no longer be undone.</numerusform>
        </translation>
    </message>
    <message>
        <source>Continuare senza cronologia? Le modifiche non potranno essere annullate.</source>
        <translation>Go on without a history? The changes cannot be undone then.</translation>
    </message>
    <message>
        <source>Cronologia</source>
        <translation>History</translation>
    </message>
</context>
<context>
    <name>HistoryCommand</name>
    <message>
        <source>La cronologia non ha il lavoro %1</source>
        <translation>The history has no job %1</translation>
    </message>
    <message>
        <source>Non c&apos;è niente da annullare</source>
        <translation>There is nothing to undo</translation>
    </message>
    <message>
        <source>Annullamento</source>
        <translation>Undo</translation>
    </message>
    <message>
        <source>il lavoro non ha modificato questa song</source>
        <translation>the job did not change this song</translation>
    </message>
</context>
<context>
    <name>HistoryDialog</name>
    <message>
        <source>Cronologia</source>
        <translation>History</translation>
    </message>
    <message>
        <source>&amp;Lavori che hanno modificato song:</source>
        <translation>&amp;Jobs that changed songs:</translation>
    </message>
    <message>
        <source>Ora</source>
        <translation>Time</translation>
    </message>
    <message>
        <source>Lavoro</source>
        <translation>Job</translation>
    </message>
    <message>
        <source>Song</source>
        <translation>Songs</translation>
    </message>
    <message>
        <source>Stato</source>
        <translation>State</translation>
    </message>
    <message>
        <source>Song &amp;del lavoro scelto:</source>
        <translation>Songs &amp;of the chosen job:</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song and field</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Before</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>After</translation>
    </message>
    <message>
        <source>Adesso</source>
        <translation>Now</translation>
    </message>
    <message>
        <source>Annulla anche le song &amp;cambiate dopo</source>
        <translation>Also undo songs &amp;changed since</translation>
    </message>
    <message>
        <source>Spazio per la cr&amp;onologia:</source>
        <translation>&amp;Room for the history:</translation>
    </message>
    <message>
        <source>Quando è pieno, i lavori più vecchi non possono più essere annullati.</source>
        <translation>When it is full, the oldest jobs can no longer be undone.</translation>
    </message>
    <message>
        <source>Annulla le &amp;song scelte</source>
        <translation>Undo chosen &amp;songs</translation>
    </message>
    <message>
        <source>Annulla &amp;tutto il lavoro</source>
        <translation>Undo &amp;whole job</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>annullato in parte</source>
        <translation>partly undone</translation>
    </message>
    <message>
        <source>annullato</source>
        <translation>undone</translation>
    </message>
    <message>
        <source>di: %1</source>
        <translation>of: %1</translation>
    </message>
    <message>
        <source>Nome file</source>
        <translation>File name</translation>
    </message>
    <message>
        <source>Song controllate: %1 di %2</source>
        <translation>Songs checked: %1 of %2</translation>
    </message>
</context>
<context>
    <name>HistoryUndo</name>
    <message>
        <source>il file non c&apos;è più</source>
        <translation>the file is no longer there</translation>
    </message>
    <message>
        <source>è stata cambiata dopo</source>
        <translation>was changed since</translation>
    </message>
    <message>
        <source>la cronologia non la conserva più, o è danneggiata</source>
        <translation>the history no longer keeps it, or is damaged</translation>
    </message>
    <message>
        <source>il nome di prima è di un altro file</source>
        <translation>another file has its old name</translation>
    </message>
    <message>
        <source>la cronologia non può essere scritta</source>
        <translation>the history cannot be written</translation>
    </message>
    <message>
        <source>non è stato possibile rinominarla</source>
        <translation>it could not be renamed</translation>
    </message>
    <message>
        <source>il disco non ha confermato il nuovo nome</source>
        <translation>the drive did not confirm the new name</translation>
    </message>
    <message>
        <source>le sue immagini karaoke non sono state rinominate</source>
        <translation>its karaoke pictures were not renamed</translation>
    </message>
</context>
<context>
    <name>JobUndo</name>
    <message>
        <source>il database della memoria non è aggiornato</source>
        <translation>the memory&apos;s song index is not up to date</translation>
    </message>
</context>
<context>
    <name>MemoryHistory</name>
    <message>
        <source>la cronologia non può essere scritta</source>
        <translation>the history cannot be written</translation>
    </message>
</context>
<context>
    <name>SongHistory</name>
    <message>
        <source>Cronologia</source>
        <translation>History</translation>
    </message>
    <message>
        <source>Non c&apos;è niente da annullare.</source>
        <translation>There is nothing to undo.</translation>
    </message>
    <message>
        <source>%1.

Annullare questo lavoro? Le song tornano come erano prima.</source>
        <translation>%1.

Undo this job? The songs become what they were before.</translation>
    </message>
</context>
<context>
    <name>TakingBack</name>
    <message numerus="yes">
        <source>%n song sono di nuovo come prima.</source>
        <translation>
            <numerusform>%n song is as before again.</numerusform>
            <numerusform>%n songs are as before again.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song erano già come prima.</source>
        <translation>
            <numerusform>%n song was as before already.</numerusform>
            <numerusform>%n songs were as before already.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono rimaste come sono.</source>
        <translation>
            <numerusform>%n song stayed as it is.</numerusform>
            <numerusform>%n songs stayed as they are.</numerusform>
        </translation>
    </message>
    <message>
        <source>Interrotto: le altre song non sono state toccate.</source>
        <translation>Stopped: the other songs were not touched.</translation>
    </message>
    <message>
        <source>Non c&apos;era niente da annullare.</source>
        <translation>There was nothing to undo.</translation>
    </message>
    <message>
        <source>Cronologia</source>
        <translation>History</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Details...</translation>
    </message>
    <message>
        <source>Le song tornano come prima...</source>
        <translation>The songs become as before...</translation>
    </message>
    <message>
        <source>Dettagli</source>
        <translation>Details</translation>
    </message>
    <message>
        <source>Queste &amp;song sono rimaste come sono:</source>
        <translation>These &amp;songs stayed as they are:</translation>
    </message>
    <message numerus="yes">
        <source>%1 del %2, %n song</source>
        <translation>
            <numerusform>%1 of %2, %n song</numerusform>
            <numerusform>%1 of %2, %n songs</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>EditArguments</name>
    <message>
        <source>A %1 manca un valore</source>
        <translation>A value is missing for %1</translation>
    </message>
    <message>
        <source>Valore non valido per %1: %2</source>
        <translation>Invalid value for %1: %2</translation>
    </message>
</context>
<context>
    <name>EditCommand</name>
    <message>
        <source>Lettura</source>
        <translation>Reading</translation>
    </message>
    <message>
        <source>Modifica</source>
        <translation>Changing</translation>
    </message>
    <message>
        <source>%1: %2 accorciato a %3 caratteri: %4</source>
        <translation>%1: %2 cut to %3 characters: %4</translation>
    </message>
    <message>
        <source>Nomi nuovi</source>
        <translation>New names</translation>
    </message>
</context>
<context>
    <name>EditSeveralDialog</name>
    <message>
        <source>Modifica più song</source>
        <translation>Edit several songs</translation>
    </message>
    <message>
        <source>Pass&amp;i, uno dopo l&apos;altro:</source>
        <translation>St&amp;eps, one after the other:</translation>
    </message>
    <message>
        <source>A&amp;ggiungi</source>
        <translation>A&amp;dd</translation>
    </message>
    <message>
        <source>&amp;Togli</source>
        <translation>Re&amp;move</translation>
    </message>
    <message>
        <source>Prima</source>
        <translation>Earlier</translation>
    </message>
    <message>
        <source>Dopo</source>
        <translation>Later</translation>
    </message>
    <message>
        <source>M&amp;ostra:</source>
        <translation>S&amp;how:</translation>
    </message>
    <message>
        <source>tutte le song</source>
        <translation>all songs</translation>
    </message>
    <message>
        <source>quelle che cambiano</source>
        <translation>those that change</translation>
    </message>
    <message>
        <source>quelle non adatte</source>
        <translation>those that do not fit</translation>
    </message>
    <message>
        <source>Sp&amp;unta tutte</source>
        <translation>&amp;Tick all</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;None</translation>
    </message>
    <message>
        <source>Song con i valori di ora e di dopo</source>
        <translation>Songs with old and new values</translation>
    </message>
    <message>
        <source>A&amp;pplica</source>
        <translation>A&amp;pply</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Esempio: %1: %2</source>
        <translation>Example: %1: %2</translation>
    </message>
    <message>
        <source>non cambia</source>
        <translation>does not change</translation>
    </message>
    <message numerus="yes">
        <source>%n song cambiano</source>
        <translation>
            <numerusform>1 song changes</numerusform>
            <numerusform>%n songs change</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non sono adatte</source>
        <translation>
            <numerusform>1 does not fit</numerusform>
            <numerusform>%n do not fit</numerusform>
        </translation>
    </message>
    <message>
        <source>Passo %1: %2</source>
        <translation>Step %1: %2</translation>
    </message>
    <message>
        <source>Scrivo le song...</source>
        <translation>Writing songs...</translation>
    </message>
</context>
<context>
    <name>EditStep</name>
    <message>
        <source>il testo supera %1 caratteri</source>
        <translation>the text has more than %1 characters</translation>
    </message>
    <message>
        <source>valore non valido per %1: %2</source>
        <translation>invalid value for %1: %2</translation>
    </message>
    <message>
        <source>non è scelto nessun campo</source>
        <translation>no field is chosen</translation>
    </message>
    <message>
        <source>manca il testo da cercare</source>
        <translation>the text to look for is missing</translation>
    </message>
    <message>
        <source>l&apos;espressione non è valida: %1</source>
        <translation>the expression is not valid: %1</translation>
    </message>
    <message>
        <source>i due campi sono lo stesso</source>
        <translation>both fields are the same</translation>
    </message>
    <message>
        <source>il nome non corrisponde al modello</source>
        <translation>the name does not fit the pattern</translation>
    </message>
    <message>
        <source>l&apos;espressione è troppo complessa</source>
        <translation>the expression is too complex</translation>
    </message>
    <message>
        <source>l&apos;elenco non ha questo file</source>
        <translation>the list does not have this file</translation>
    </message>
    <message>
        <source>l&apos;elenco ha questo file più volte, con dati diversi</source>
        <translation>the list has this file more than once, with different details</translation>
    </message>
</context>
<context>
    <name>EditStepForm</name>
    <message>
        <source>&amp;Modello:</source>
        <translation>Patte&amp;rn:</translation>
    </message>
    <message>
        <source>Campi: %title %artist %genre %author %key %bpm, e senza essere presi %track (un numero) e %any (un testo). Con / il modello arriva alle cartelle.</source>
        <translation>Fields: %title %artist %genre %author %key %bpm, and left out %track (a number) and %any (a text). With / the pattern reaches into the folders.</translation>
    </message>
    <message>
        <source>&amp;Campo:</source>
        <translation>&amp;Field:</translation>
    </message>
    <message>
        <source>&amp;Altro campo:</source>
        <translation>&amp;Other field:</translation>
    </message>
    <message>
        <source>&amp;Valore:</source>
        <translation>&amp;Value:</translation>
    </message>
    <message>
        <source>Vuoto toglie il dato.</source>
        <translation>Empty takes the detail away.</translation>
    </message>
    <message>
        <source>Ce&amp;rca:</source>
        <translation>&amp;Look for:</translation>
    </message>
    <message>
        <source>&amp;Sostituisci con:</source>
        <translation>&amp;Replace with:</translation>
    </message>
    <message>
        <source>&amp;Espressione regolare</source>
        <translation>Re&amp;gular expression</translation>
    </message>
    <message>
        <source>&amp;Maiuscole e minuscole</source>
        <translation>M&amp;atch case</translation>
    </message>
    <message>
        <source>S&amp;crittura:</source>
        <translation>Letter &amp;case:</translation>
    </message>
    <message>
        <source>Ogni Parola Maiuscola</source>
        <translation>Each Word Capitalised</translation>
    </message>
    <message>
        <source>TUTTO MAIUSCOLO</source>
        <translation>ALL CAPITALS</translation>
    </message>
    <message>
        <source>tutto minuscolo</source>
        <translation>all small</translation>
    </message>
    <message>
        <source>Solo la prima lettera</source>
        <translation>Only the first letter</translation>
    </message>
    <message>
        <source>&amp;Lingua:</source>
        <translation>Lan&amp;guage:</translation>
    </message>
    <message>
        <source>&quot;_&quot; diventa uno spa&amp;zio</source>
        <translation>&quot;_&quot; &amp;becomes a blank</translation>
    </message>
    <message>
        <source>Campi:</source>
        <translation>Fields:</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Autore</source>
        <translation>Author</translation>
    </message>
    <message>
        <source>E&amp;lenco:</source>
        <translation>&amp;List:</translation>
    </message>
    <message>
        <source>Un file CSV: la nostra lista delle song, o quello che scrive un foglio di calcolo. La prima riga dà i nomi alle colonne.</source>
        <translation>A CSV file: our song list, or what a spreadsheet writes. The first line names the columns.</translation>
    </message>
    <message>
        <source>S&amp;foglia...</source>
        <translation>&amp;Browse...</translation>
    </message>
    <message>
        <source>non è scelto nessun elenco</source>
        <translation>no list is chosen</translation>
    </message>
    <message>
        <source>Dal nome del file</source>
        <translation>From the file name</translation>
    </message>
    <message>
        <source>Un valore per tutte</source>
        <translation>One value for all</translation>
    </message>
    <message>
        <source>Cerca e sostituisci</source>
        <translation>Find and replace</translation>
    </message>
    <message>
        <source>Maiuscole e minuscole</source>
        <translation>Letter case</translation>
    </message>
    <message>
        <source>Togli spazi e &quot;_&quot;</source>
        <translation>Strip blanks and &quot;_&quot;</translation>
    </message>
    <message>
        <source>Scambia due campi</source>
        <translation>Swap two fields</translation>
    </message>
    <message>
        <source>Da un elenco CSV</source>
        <translation>From a CSV list</translation>
    </message>
    <message>
        <source>Scegli l&apos;elenco</source>
        <translation>Choose the list</translation>
    </message>
    <message>
        <source>Elenchi (*.csv *.txt *.tsv)</source>
        <translation>Lists (*.csv *.txt *.tsv)</translation>
    </message>
    <message>
        <source>Tutti i file (*)</source>
        <translation>All files (*)</translation>
    </message>
</context>
<context>
    <name>NamePattern</name>
    <message>
        <source>il modello è vuoto</source>
        <translation>the pattern is empty</translation>
    </message>
    <message>
        <source>il modello supera %1 caratteri</source>
        <translation>the pattern has more than %1 characters</translation>
    </message>
    <message>
        <source>questo campo non c&apos;è: %1</source>
        <translation>there is no such field: %1</translation>
    </message>
    <message>
        <source>qui questo campo non vale: %1</source>
        <translation>this field cannot be used here: %1</translation>
    </message>
    <message>
        <source>tra due campi ci vuole un testo</source>
        <translation>there must be a text between two fields</translation>
    </message>
    <message>
        <source>il campo c&apos;è due volte: %1</source>
        <translation>the field is there twice: %1</translation>
    </message>
    <message>
        <source>manca un campo, per esempio %1</source>
        <translation>a field is missing, for example %1</translation>
    </message>
    <message>
        <source>un nome non può contenere &quot;/&quot;</source>
        <translation>a name cannot hold a &quot;/&quot;</translation>
    </message>
</context>
<context>
    <name>SeveralEditor</name>
    <message>
        <source>È stata cambiata dopo l&apos;anteprima</source>
        <translation>The song was changed after the preview</translation>
    </message>
    <message>
        <source>Questo file non può contenere i dati mostrati</source>
        <translation>This file cannot hold the details that were shown</translation>
    </message>
</context>
<context>
    <name>SeveralRenamer</name>
    <message>
        <source>Un altro file ha già il nome nuovo</source>
        <translation>Another file has the new name already</translation>
    </message>
    <message>
        <source>Il suo ultimo salvataggio non è finito</source>
        <translation>The last save of the song is not finished</translation>
    </message>
    <message>
        <source>Il file non può essere rinominato</source>
        <translation>The file cannot be renamed</translation>
    </message>
    <message>
        <source>Il disco non ha confermato il nome nuovo</source>
        <translation>The drive has not confirmed the new name</translation>
    </message>
</context>
<context>
    <name>SeveralRenames</name>
    <message>
        <source>alla song manca un dato del modello</source>
        <translation>the song lacks one of the details in the pattern</translation>
    </message>
    <message>
        <source>è in una memoria: si rinomina nella finestra della memoria</source>
        <translation>is on a memory: rename it in the window of the memory</translation>
    </message>
    <message>
        <source>il nome sarebbe vuoto</source>
        <translation>the name would be empty</translation>
    </message>
    <message>
        <source>non c&apos;è un nome libero</source>
        <translation>no name is free</translation>
    </message>
    <message>
        <source>qui il nome cambierebbe solo nelle maiuscole</source>
        <translation>here only the letter case would change</translation>
    </message>
    <message>
        <source>il player non ha uno dei caratteri</source>
        <translation>the player lacks one of the characters</translation>
    </message>
</context>
<context>
    <name>SeveralSongsModel</name>
    <message>
        <source>cambia</source>
        <translation>changes</translation>
    </message>
    <message>
        <source>%1 accorciato</source>
        <translation>%1 cut</translation>
    </message>
    <message>
        <source>&quot;?&quot; al posto di: %1</source>
        <translation>&quot;?&quot; in place of: %1</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>%1 dopo</source>
        <translation>%1 new</translation>
    </message>
    <message>
        <source>%1 ora</source>
        <translation>%1 now</translation>
    </message>
</context>
<context>
    <name>CsvList</name>
    <message>
        <source>l&apos;elenco è troppo grande</source>
        <translation>the list is too large</translation>
    </message>
    <message>
        <source>l&apos;elenco è troppo grande o danneggiato</source>
        <translation>the list is too large or damaged</translation>
    </message>
    <message>
        <source>l&apos;elenco non è leggibile</source>
        <translation>the list cannot be read</translation>
    </message>
    <message>
        <source>l&apos;elenco è vuoto</source>
        <translation>the list is empty</translation>
    </message>
    <message>
        <source>all&apos;elenco manca la colonna con i nomi dei file</source>
        <translation>the list has no column of file names</translation>
    </message>
    <message>
        <source>l&apos;elenco non ha colonne con dati di song</source>
        <translation>the list has no columns with details of songs</translation>
    </message>
</context>
<context>
    <name>RenameSeveralDialog</name>
    <message>
        <source>Rinomina i file</source>
        <translation>Rename files</translation>
    </message>
    <message>
        <source>&amp;Modello:</source>
        <translation>&amp;Pattern:</translation>
    </message>
    <message>
        <source>Campi: %title %artist %genre %author %key %bpm e %name, il nome di ora.</source>
        <translation>Fields: %title %artist %genre %author %key %bpm and %name, the present name.</translation>
    </message>
    <message>
        <source>Solo nomi che il player può mo&amp;strare, di otto caratteri</source>
        <translation>Only names that the player can &amp;show, of eight characters</translation>
    </message>
    <message>
        <source>File con i nomi di ora e di dopo</source>
        <translation>Files with old and new names</translation>
    </message>
    <message>
        <source>Nome di ora</source>
        <translation>Present name</translation>
    </message>
    <message>
        <source>Nome nuovo</source>
        <translation>New name</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>&amp;Rinomina</source>
        <translation>&amp;Rename</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message numerus="yes">
        <source>%n file cambiano nome</source>
        <translation>
            <numerusform>1 file gets a new name</numerusform>
            <numerusform>%n files get new names</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non sono adatti</source>
        <translation>
            <numerusform>1 does not fit</numerusform>
            <numerusform>%n do not fit</numerusform>
        </translation>
    </message>
    <message>
        <source>Modello: %1</source>
        <translation>Pattern: %1</translation>
    </message>
    <message>
        <source>non cambia</source>
        <translation>does not change</translation>
    </message>
    <message>
        <source>Esempio: %1: %2</source>
        <translation>Example: %1: %2</translation>
    </message>
    <message>
        <source>Rinomino i file...</source>
        <translation>Renaming files...</translation>
    </message>
    <message>
        <source>Questi &amp;file non sono a posto:</source>
        <translation>These &amp;files are not all right:</translation>
    </message>
</context>
<context>
    <name>Tags</name>
    <message>
        <source>un&apos;altra codifica dei caratteri</source>
        <translation>another character encoding</translation>
    </message>
    <message>
        <source>un&apos;altra versione di ID3</source>
        <translation>another version of ID3</translation>
    </message>
    <message>
        <source>byte aggiunti fra gli altri</source>
        <translation>bytes added between the others</translation>
    </message>
    <message>
        <source>solo ID3v1, alla fine del file</source>
        <translation>only ID3v1, at the end of the file</translation>
    </message>
    <message>
        <source>solo APE, alla fine del file</source>
        <translation>only APE, at the end of the file</translation>
    </message>
    <message>
        <source>Il player non può mostrare i testi del tag MP3: %1</source>
        <translation>The player cannot show the texts of the MP3 tag: %1</translation>
    </message>
    <message>
        <source>Il tag è danneggiato, non può essere scritto.</source>
        <translation>The tag is damaged, it cannot be written.</translation>
    </message>
    <message>
        <source>La nuova versione del tag non può contenere questi dati, che vanno persi: %1</source>
        <translation>The new version of the tag cannot hold these frames, they will be lost: %1</translation>
    </message>
    <message>
        <source>Il tag resta di versione 2.4, che contiene dati sconosciuti alla 2.3; il player ne legge i testi.</source>
        <translation>The tag stays one of version 2.4, since it holds frames that 2.3 does not know; the player reads its texts.</translation>
    </message>
    <message>
        <source>Questi testi del tag non si possono leggere e restano come sono: %1</source>
        <translation>These texts of the tag cannot be read and stay as they are: %1</translation>
    </message>
</context>
<context>
    <name>TagsCommand</name>
    <message>
        <source>Tag MP3</source>
        <translation>MP3 tags</translation>
    </message>
</context>
<context>
    <name>TagPreparing</name>
    <message>
        <source>Tag MP3</source>
        <translation>MP3 tags</translation>
    </message>
    <message>
        <source>Il player può mostrare i testi di tutti i file MP3 della lista.</source>
        <translation>The player can show the texts of all MP3 files in the list.</translation>
    </message>
    <message>
        <source>%1.

Preparare prima il tag per il player?</source>
        <translation>%1.

Prepare the tag for the player first?</translation>
    </message>
    <message>
        <source>&amp;Prepara...</source>
        <translation>&amp;Prepare...</translation>
    </message>
    <message>
        <source>&amp;Modifica così com&apos;è</source>
        <translation>&amp;Edit as it is</translation>
    </message>
    <message>
        <source>Leggo i tag...</source>
        <translation>Reading the tags...</translation>
    </message>
</context>
<context>
    <name>PrepareTagsDialog</name>
    <message>
        <source>Prepara i tag MP3</source>
        <translation>Prepare MP3 tags</translation>
    </message>
    <message>
        <source>Il player legge solo tag ID3v2.3 con i caratteri dell&apos;Europa occidentale. Qui si vede che cosa mostra adesso di queste song e che cosa mostrerà dopo; con un doppio clic i nuovi testi si possono modificare. Il resto dei file non cambia.</source>
        <translation>The player reads only ID3v2.3 tags with Western European characters. Here you see what it shows of these songs now and what it will show afterwards; a double click lets you edit the new texts. Nothing else in the files changes.</translation>
    </message>
    <message>
        <source>&amp;Song con tag da preparare:</source>
        <translation>&amp;Songs with tags to prepare:</translation>
    </message>
    <message>
        <source>Song e campo</source>
        <translation>Song and field</translation>
    </message>
    <message>
        <source>Il player mostra</source>
        <translation>The player shows</translation>
    </message>
    <message>
        <source>Nel tag</source>
        <translation>In the tag</translation>
    </message>
    <message>
        <source>Il player mostrerà</source>
        <translation>The player will show</translation>
    </message>
    <message>
        <source>&amp;Tutte le song</source>
        <translation>&amp;All songs</translation>
    </message>
    <message>
        <source>&amp;Applica</source>
        <translation>A&amp;pply</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Song scelte: %1 di %2</source>
        <translation>Songs chosen: %1 of %2</translation>
    </message>
    <message>
        <source>Scrivo i tag...</source>
        <translation>Writing the tags...</translation>
    </message>
    <message numerus="yes">
        <source>Tag scritti: %n.</source>
        <translation>
            <numerusform>Tags written: %n.</numerusform>
            <numerusform>Tags written: %n.</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n song sono rimaste come sono.</source>
        <translation>
            <numerusform>%n song is as it was.</numerusform>
            <numerusform>%n songs are as they were.</numerusform>
        </translation>
    </message>
    <message>
        <source>Interrotto: le altre song non sono state toccate.</source>
        <translation>Stopped: the other songs were not touched.</translation>
    </message>
    <message>
        <source>&amp;Dettagli...</source>
        <translation>&amp;Details...</translation>
    </message>
    <message>
        <source>&amp;Song rimaste come sono:</source>
        <translation>&amp;Songs that are as they were:</translation>
    </message>
</context>
<context>
    <name>SongLists</name>
    <message>
        <source>Queste song sono già nella lista</source>
        <translation>These songs are in the list already</translation>
    </message>
    <message>
        <source>Song aggiunte alla lista: %1</source>
        <translation>Songs added to the list: %1</translation>
    </message>
    <message>
        <source>Apri lista</source>
        <translation>Open list</translation>
    </message>
    <message>
        <source>La lista non contiene song</source>
        <translation>The list holds no songs</translation>
    </message>
    <message>
        <source>Non è il percorso di un file</source>
        <translation>Leads to no file</translation>
    </message>
    <message>
        <source>La lista è troppo lunga: solo le prime %1 song sono state lette.</source>
        <translation>The list is too long: only its first songs (%1) were read.</translation>
    </message>
    <message>
        <source>La lista è vuota</source>
        <translation>The list is empty</translation>
    </message>
    <message>
        <source>Lista con percorsi relativi (*.m3u8)</source>
        <translation>List that can be moved with the songs (*.m3u8)</translation>
    </message>
    <message>
        <source>Lista con percorsi assoluti (*.m3u8)</source>
        <translation>List that can be moved by itself (*.m3u8)</translation>
    </message>
    <message>
        <source>Salva lista</source>
        <translation>Save list</translation>
    </message>
    <message>
        <source>Song salvate nella lista: %1</source>
        <translation>Songs saved in the list: %1</translation>
    </message>
    <message>
        <source>Aggiungi %1</source>
        <translation>Add %1</translation>
    </message>
    <message>
        <source>Nessuna lista</source>
        <translation>No list</translation>
    </message>
</context>
<context>
    <name>UserFile</name>
    <message>
        <source>Il file è troppo grande</source>
        <translation>The file is too large</translation>
    </message>
    <message>
        <source>Il file non può essere letto</source>
        <translation>The file cannot be read</translation>
    </message>
    <message>
        <source>Il file è una song e non viene sostituito</source>
        <translation>The file is a song and is not replaced</translation>
    </message>
    <message>
        <source>Non c&apos;è abbastanza spazio</source>
        <translation>There is not enough room</translation>
    </message>
    <message>
        <source>Nella cartella non si può scrivere</source>
        <translation>The folder cannot be written to</translation>
    </message>
    <message>
        <source>La cartella non esiste</source>
        <translation>The folder does not exist</translation>
    </message>
    <message>
        <source>Il file non può essere scritto</source>
        <translation>The file cannot be written</translation>
    </message>
    <message>
        <source>Il file è di un altro tipo e non viene sostituito</source>
        <translation>The file is of another kind and is not replaced</translation>
    </message>
</context>
<context>
    <name>OwnCatalogue</name>
    <message>
        <source>Il mio catalogo è di una versione più recente del programma.</source>
        <translation>My catalogue is of a later version of the program.</translation>
    </message>
    <message>
        <source>Il mio catalogo è danneggiato, o non è un catalogo di questo programma.</source>
        <translation>My catalogue is damaged, or is no catalogue of this program.</translation>
    </message>
    <message>
        <source>Il mio catalogo non può essere letto.</source>
        <translation>My catalogue cannot be read.</translation>
    </message>
    <message>
        <source>Il mio catalogo non può essere scritto.</source>
        <translation>My catalogue cannot be written.</translation>
    </message>
    <message>
        <source>Il mio catalogo è in uso da un altro programma.</source>
        <translation>My catalogue is in use by another program.</translation>
    </message>
</context>
<context>
    <name>CatalogueTsv</name>
    <message>
        <source>riga %1: %2</source>
        <translation>line %1: %2</translation>
    </message>
    <message>
        <source>non è testo</source>
        <translation>is no text</translation>
    </message>
    <message>
        <source>mancano delle colonne</source>
        <translation>columns are missing</translation>
    </message>
    <message>
        <source>durata e tempo devono essere numeri</source>
        <translation>length and tempo must be numbers</translation>
    </message>
    <message>
        <source>mancano il titolo o il nome del file, o un testo è troppo lungo</source>
        <translation>the title or the file name is missing, or a text is too long</translation>
    </message>
    <message>
        <source>ci sono troppe voci</source>
        <translation>there are too many entries</translation>
    </message>
    <message>
        <source>la durata va fino a 5999 secondi, il tempo fino a 999</source>
        <translation>the length goes up to 5999 seconds, the tempo up to 999</translation>
    </message>
    <message>
        <source>la tonalità non esiste</source>
        <translation>there is no such key</translation>
    </message>
    <message>
        <source>i marker non sono scritti nella forma battuta;testo;</source>
        <translation>the sections are not written in the form bar;text;</translation>
    </message>
</context>
<context>
    <name>SongEntries</name>
    <message>
        <source>Senza titolo o nome non può stare nel catalogo</source>
        <translation>Without a title or a name it cannot be in the catalogue</translation>
    </message>
    <message>
        <source>Un&apos;altra song ha lo stesso nome</source>
        <translation>Another song has the same name</translation>
    </message>
</context>
<context>
    <name>OwnCatalogueMenu</name>
    <message>
        <source>%1 è nel mio catalogo</source>
        <translation>%1 is in my catalogue</translation>
    </message>
    <message numerus="yes">
        <source>%n song sono nel mio catalogo</source>
        <translation>
            <numerusform>%n song is in my catalogue</numerusform>
            <numerusform>%n songs are in my catalogue</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>SongSync</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>My catalogue</translation>
    </message>
    <message>
        <source>Continuare con il solo catalogo del programma?</source>
        <translation>Go on with the program&apos;s catalogue only?</translation>
    </message>
</context>
<context>
    <name>CatalogueAdding</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>My catalogue</translation>
    </message>
    <message>
        <source>Leggo le song...</source>
        <translation>Looking at the songs...</translation>
    </message>
    <message>
        <source>Il file non contiene voci.</source>
        <translation>The file holds no entries.</translation>
    </message>
    <message numerus="yes">
        <source>%n voci sono già nel catalogo. Sostituirle?</source>
        <translation>
            <numerusform>One entry is in the catalogue already. Replace it?</numerusform>
            <numerusform>%n entries are in the catalogue already. Replace them?</numerusform>
        </translation>
    </message>
    <message>
        <source>&amp;Non aggiunto al catalogo:</source>
        <translation>&amp;Not added to the catalogue:</translation>
    </message>
</context>
<context>
    <name>CatalogueEntryDialog</name>
    <message>
        <source>Voce del mio catalogo</source>
        <translation>Entry of my catalogue</translation>
    </message>
    <message>
        <source>T&amp;itolo:</source>
        <translation>T&amp;itle:</translation>
    </message>
    <message>
        <source>In&amp;terprete:</source>
        <translation>Ar&amp;tist:</translation>
    </message>
    <message>
        <source>Interprete, c&amp;ognome prima:</source>
        <translation>Artist, &amp;last name first:</translation>
    </message>
    <message>
        <source>&amp;Genere:</source>
        <translation>&amp;Genre:</translation>
    </message>
    <message>
        <source>&amp;Autore:</source>
        <translation>&amp;Author:</translation>
    </message>
    <message>
        <source>&amp;Durata:</source>
        <translation>L&amp;ength:</translation>
    </message>
    <message>
        <source>&amp;BPM:</source>
        <translation>Tempo (&amp;BPM):</translation>
    </message>
    <message>
        <source>Tona&amp;lità:</source>
        <translation>&amp;Key:</translation>
    </message>
    <message>
        <source>Nome del &amp;file:</source>
        <translation>&amp;File name:</translation>
    </message>
    <message>
        <source>&amp;Marker:</source>
        <translation>Se&amp;ctions:</translation>
    </message>
    <message>
        <source>&amp;Salva</source>
        <translation>&amp;Save</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Manca il titolo.</source>
        <translation>The title is missing.</translation>
    </message>
    <message>
        <source>Manca il nome del file.</source>
        <translation>The file name is missing.</translation>
    </message>
    <message>
        <source>La durata si scrive in minuti e secondi, per esempio 3:05.</source>
        <translation>The length is written in minutes and seconds, for example 3:05.</translation>
    </message>
    <message>
        <source>Ogni riga dei marker ha una misura e un testo, per esempio: 9 Verse1</source>
        <translation>Each line of the sections has a bar and a text, for example: 9 Verse1</translation>
    </message>
    <message>
        <source>Un testo è troppo lungo.</source>
        <translation>A text is too long.</translation>
    </message>
    <message>
        <source>Il tempo è un numero, per esempio 120.</source>
        <translation>The tempo is a number, for example 120.</translation>
    </message>
    <message>
        <source>La tonalità non esiste.</source>
        <translation>There is no such key.</translation>
    </message>
</context>
<context>
    <name>CatalogueDialog</name>
    <message>
        <source>Il mio catalogo</source>
        <translation>My catalogue</translation>
    </message>
    <message>
        <source>La sincronizzazione cerca le song prima in queste voci e poi nel catalogo del programma.</source>
        <translation>Synchronizing looks for songs in these entries first, and then in the program&apos;s catalogue.</translation>
    </message>
    <message>
        <source>&amp;Cerca:</source>
        <translation>&amp;Find:</translation>
    </message>
    <message>
        <source>Voci del mio catalogo</source>
        <translation>Entries of my catalogue</translation>
    </message>
    <message>
        <source>Titolo</source>
        <translation>Title</translation>
    </message>
    <message>
        <source>Interprete</source>
        <translation>Artist</translation>
    </message>
    <message>
        <source>Genere</source>
        <translation>Genre</translation>
    </message>
    <message>
        <source>Durata</source>
        <translation>Length</translation>
    </message>
    <message>
        <source>BPM</source>
        <translation>BPM</translation>
    </message>
    <message>
        <source>Tonalità</source>
        <translation>Key</translation>
    </message>
    <message>
        <source>Nome del file</source>
        <translation>File name</translation>
    </message>
    <message>
        <source>Aggiungi le song della &amp;lista</source>
        <translation>Add the songs in the &amp;list</translation>
    </message>
    <message>
        <source>&amp;Importa...</source>
        <translation>&amp;Import...</translation>
    </message>
    <message>
        <source>Es&amp;porta...</source>
        <translation>E&amp;xport...</translation>
    </message>
    <message>
        <source>&amp;Modifica...</source>
        <translation>&amp;Edit...</translation>
    </message>
    <message>
        <source>&amp;Elimina</source>
        <translation>&amp;Delete</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Voci: %1 di %2</source>
        <translation>Entries: %1 of %2</translation>
    </message>
    <message>
        <source>C&apos;è già una voce con questo nome del file. Sostituirla?</source>
        <translation>There is an entry with this file name already. Replace it?</translation>
    </message>
    <message numerus="yes">
        <source>Eliminare %n voci dal catalogo? Le song restano come sono.</source>
        <translation>
            <numerusform>Delete one entry from the catalogue? The songs stay as they are.</numerusform>
            <numerusform>Delete %n entries from the catalogue? The songs stay as they are.</numerusform>
        </translation>
    </message>
    <message>
        <source>Importa voci</source>
        <translation>Import entries</translation>
    </message>
    <message>
        <source>Esporta voci</source>
        <translation>Export entries</translation>
    </message>
</context>
<context>
    <name>MeasureCommand</name>
    <message>
        <source>Misura</source>
        <translation>Measuring</translation>
    </message>
</context>
<context>
    <name>ColumnChoice</name>
    <message>
        <source>Come all&apos;inizio</source>
        <translation>As at first</translation>
    </message>
</context>
<context>
    <name>ListOutput</name>
    <message>
        <source>Lista delle song</source>
        <translation>Song list</translation>
    </message>
    <message>
        <source>Stampa lista</source>
        <translation>Print list</translation>
    </message>
    <message numerus="yes">
        <source>Lista delle song: %n song</source>
        <translation>
            <numerusform>Song list: %n song</numerusform>
            <numerusform>Song list: %n songs</numerusform>
        </translation>
    </message>
    <message>
        <source>La lista non può essere stampata</source>
        <translation>The list cannot be printed</translation>
    </message>
    <message>
        <source>Song copiate negli appunti: %1</source>
        <translation>Songs copied to the clipboard: %1</translation>
    </message>
    <message>
        <source>Lista salvata in %1</source>
        <translation>List saved to %1</translation>
    </message>
    <message>
        <source>La lista è alla stampante</source>
        <translation>The list is at the printer</translation>
    </message>
</context>
<context>
    <name>TablePages</name>
    <message>
        <source>Pagina %1 di %2</source>
        <translation>Page %1 of %2</translation>
    </message>
</context>
<context>
    <name>JobPace</name>
    <message>
        <source>Song al secondo: %1</source>
        <translation>Songs per second: %1</translation>
    </message>
    <message>
        <source>Song al minuto: %1</source>
        <translation>Songs per minute: %1</translation>
    </message>
    <message numerus="yes">
        <source>ancora %n secondi circa</source>
        <translation>
            <numerusform>about %n second left</numerusform>
            <numerusform>about %n seconds left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>ancora %n minuti circa</source>
        <translation>
            <numerusform>about %n minute left</numerusform>
            <numerusform>about %n minutes left</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>ancora %n ore circa</source>
        <translation>
            <numerusform>about %n hour left</numerusform>
            <numerusform>about %n hours left</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>BackgroundJob</name>
    <message>
        <source>Memoria</source>
        <translation>Memory</translation>
    </message>
</context>
<context>
    <name>JobNotice</name>
    <message>
        <source>Il lavoro è finito</source>
        <translation>The job is over</translation>
    </message>
    <message>
        <source>Il programma aspetta una risposta</source>
        <translation>The program is waiting for an answer</translation>
    </message>
</context>
<context>
    <name>FillFromMusicDialog</name>
    <message>
        <source>Completa dalla musica</source>
        <translation>Fill in from the music</translation>
    </message>
    <message>
        <source>Durata, BPM, tonalità e marker come risultano dalla musica, accanto a ciò che le song dicono ora; per gli MP3 solo la durata. Si scrive ciò che è spuntato: un valore che c&apos;è già e una tonalità stimata lo sono solo se lo vuoi.</source>
        <translation>Length, BPM, key and sections as the music has them, beside what the songs say now; for MP3s the length only. What is ticked gets written: values that are there already and guessed keys are ticked only if you want it.</translation>
    </message>
    <message>
        <source>Anche le &amp;song a cui non manca nulla</source>
        <translation>Also &amp;songs that lack nothing</translation>
    </message>
    <message>
        <source>Anche le &amp;tonalità stimate</source>
        <translation>Also guessed &amp;keys</translation>
    </message>
    <message>
        <source>Sp&amp;unta tutte</source>
        <translation>&amp;Tick all</translation>
    </message>
    <message>
        <source>&amp;Nessuna</source>
        <translation>&amp;None</translation>
    </message>
    <message>
        <source>Song con i valori di ora e quelli della musica</source>
        <translation>Songs with the values of now and those of the music</translation>
    </message>
    <message>
        <source>A&amp;pplica</source>
        <translation>&amp;Apply</translation>
    </message>
    <message>
        <source>Annulla</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>Misuro le song...</source>
        <translation>Measuring the songs...</translation>
    </message>
    <message>
        <source>Scrivo le song...</source>
        <translation>Writing the songs...</translation>
    </message>
    <message>
        <source>A nessuna song manca un valore che la musica può dare</source>
        <translation>No song lacks a value that the music can give</translation>
    </message>
    <message numerus="yes">
        <source>%n song cambiano</source>
        <translation>
            <numerusform>1 song changes</numerusform>
            <numerusform>%n songs change</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>%n non misurabili per intero</source>
        <translation>
            <numerusform>1 not fully measurable</numerusform>
            <numerusform>%n not fully measurable</numerusform>
        </translation>
    </message>
    <message numerus="yes">
        <source>interrotto: %n non misurate</source>
        <translation>
            <numerusform>stopped: 1 not measured</numerusform>
            <numerusform>stopped: %n not measured</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>MusicOffer</name>
    <message>
        <source>Troppi marker: gli ultimi mancano</source>
        <translation>Too many sections: the last ones are missing</translation>
    </message>
</context>
<context>
    <name>MusicOffersModel</name>
    <message>
        <source>non misurabile</source>
        <translation>not measurable</translation>
    </message>
    <message>
        <source>%1 (stimata)</source>
        <translation>%1 (guessed)</translation>
    </message>
    <message>
        <source>File</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Nota</source>
        <translation>Note</translation>
    </message>
    <message>
        <source>%1 dopo</source>
        <translation>%1 new</translation>
    </message>
    <message>
        <source>%1 ora</source>
        <translation>%1 now</translation>
    </message>
</context>
<context>
    <name>RenderCommand</name>
    <message>
        <source>Il file esiste già. Sostituirlo?</source>
        <translation>The file exists already. Replace it?</translation>
    </message>
</context>
<context>
    <name>SoundProblem</name>
    <message>
        <source>Questa versione del programma è senza suono</source>
        <translation>This version of the program is without sound</translation>
    </message>
    <message>
        <source>La parte del programma che suona le song non è installata</source>
        <translation>The part of the program that plays songs is not installed</translation>
    </message>
    <message>
        <source>Manca un sound font per suonare le song MIDI (per esempio il pacchetto timgm6mb-soundfont)</source>
        <translation>There is no sound font for MIDI songs (for example the package timgm6mb-soundfont)</translation>
    </message>
    <message>
        <source>Il sound font non può essere letto</source>
        <translation>The sound font cannot be read</translation>
    </message>
    <message>
        <source>Non c&apos;è un dispositivo audio</source>
        <translation>There is no sound device</translation>
    </message>
    <message>
        <source>Il dispositivo audio non risponde</source>
        <translation>The sound device does not respond</translation>
    </message>
    <message>
        <source>Il file non può essere letto</source>
        <translation>The file cannot be read</translation>
    </message>
    <message>
        <source>Un altro programma sta salvando la song</source>
        <translation>Another program is saving the song</translation>
    </message>
    <message>
        <source>Il file non è una song</source>
        <translation>The file is not a song</translation>
    </message>
    <message>
        <source>La song è danneggiata</source>
        <translation>The song is damaged</translation>
    </message>
    <message>
        <source>La song è troppo grande per essere suonata</source>
        <translation>The song is too large to be played</translation>
    </message>
    <message>
        <source>La song dura più di 6 ore</source>
        <translation>The song is longer than 6 hours</translation>
    </message>
    <message>
        <source>Nella song non c&apos;è niente da sentire</source>
        <translation>There is nothing to hear in the song</translation>
    </message>
</context>
<context>
    <name>EmptyListPage</name>
    <message>
        <source>Riapri l&apos;ultima lista</source>
        <translation>Reopen the last list</translation>
    </message>
    <message>
        <source>Rilascia qui le song</source>
        <translation>Let go of the songs here</translation>
    </message>
    <message>
        <source>Trascina qui song o cartelle</source>
        <translation>Drop songs or folders here</translation>
    </message>
    <message>
        <source>In tre passi sulla memoria di Kavena</source>
        <translation>Three steps to the card or stick</translation>
    </message>
    <message>
        <source>&lt;b&gt;Scegli le song&lt;/b&gt; o trascinale qui, anche cartelle intere.</source>
        <translation>&lt;b&gt;Choose songs&lt;/b&gt; or drop them here, whole folders too.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Sincronizza:&lt;/b&gt; i dati che mancano, come titolo e artista, arrivano dal catalogo.</source>
        <translation>&lt;b&gt;Synchronize:&lt;/b&gt; missing details such as title and artist come from the catalogue.</translation>
    </message>
    <message>
        <source>&lt;b&gt;Trasferisci:&lt;/b&gt; le song vanno nella memoria di Kavena, pronte da suonare.</source>
        <translation>&lt;b&gt;Transfer:&lt;/b&gt; the songs go onto the card or stick, ready to play.</translation>
    </message>
    <message>
        <source>Scegli &amp;song...</source>
        <translation>Choose so&amp;ngs...</translation>
    </message>
    <message>
        <source>Scegli c&amp;artella...</source>
        <translation>Choose a fo&amp;lder...</translation>
    </message>
    <message>
        <source>Ci sono già song nella memoria?</source>
        <translation>Songs on the card or stick already?</translation>
    </message>
    <message>
        <source>G&amp;uarda la memoria...</source>
        <translation>&amp;View memory...</translation>
    </message>
    <message>
        <source>O riprendi da una lista:</source>
        <translation>Or go on with a list:</translation>
    </message>
</context>
<context>
    <name>NoMatchPage</name>
    <message>
        <source>Nessuna song corrisponde al filtro</source>
        <translation>No song matches the filter</translation>
    </message>
    <message numerus="yes">
        <source>%n song nascoste</source>
        <translation>
            <numerusform>%n song is hidden</numerusform>
            <numerusform>%n songs are hidden</numerusform>
        </translation>
    </message>
    <message>
        <source>Togli il filt&amp;ro</source>
        <translation>&amp;Clear the filter</translation>
    </message>
</context>
<context>
    <name>SongStates</name>
    <message>
        <source>sincronizzata</source>
        <translation>synchronized</translation>
    </message>
    <message>
        <source>modificata</source>
        <translation>edited</translation>
    </message>
    <message>
        <source>non sincronizzata</source>
        <translation>not synchronized</translation>
    </message>
    <message>
        <source>nuova</source>
        <translation>new</translation>
    </message>
    <message>
        <source>Sincronizzata: ha i dati del catalogo</source>
        <translation>Synchronized: has the details of the catalogue</translation>
    </message>
    <message>
        <source>Modificata: ha i dati che hai scritto tu</source>
        <translation>Edited: has the details that you wrote</translation>
    </message>
    <message>
        <source>Non sincronizzata: non è nel catalogo, o è rimasta com&apos;era</source>
        <translation>Not synchronized: not in the catalogue, or left as it was</translation>
    </message>
    <message>
        <source>Nuova: non ancora sincronizzata</source>
        <translation>New: not yet synchronized</translation>
    </message>
</context>
<context>
    <name>StateButtons</name>
    <message>
        <source>Premi per vedere solo queste song</source>
        <translation>Press to see only these songs</translation>
    </message>
</context>
<context>
    <name>SyncSummaryBar</name>
    <message>
        <source>%1 di %2 trovate</source>
        <translation>%1 of %2 found</translation>
    </message>
    <message>
        <source>%1 non nel catalogo</source>
        <translation>%1 not in the catalogue</translation>
    </message>
    <message>
        <source>%1 non raggiunte</source>
        <translation>%1 not reached</translation>
    </message>
    <message>
        <source>Chiudi</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>%1 senza modifiche</source>
        <translation>%1 left unchanged</translation>
    </message>
    <message>
        <source>Modifica&amp;le...</source>
        <translation>Ed&amp;it them...</translation>
    </message>
    <message>
        <source>Aggiungile al mio catalo&amp;go...</source>
        <translation>Add them to my catalo&amp;gue...</translation>
    </message>
    <message>
        <source>%1 nel mio catalogo</source>
        <translation>%1 in my catalogue</translation>
    </message>
</context>
<context>
    <name>PlayerBar</name>
    <message>
        <source>Scegli un sound font</source>
        <translation>Choose a sound font</translation>
    </message>
    <message>
        <source>Sound font (*.sf2 *.sf3)</source>
        <translation>Sound fonts (*.sf2 *.sf3)</translation>
    </message>
    <message>
        <source>Pausa</source>
        <translation>Pause</translation>
    </message>
    <message>
        <source>Suona</source>
        <translation>Play</translation>
    </message>
    <message>
        <source>%1 (barra spaziatrice)</source>
        <translation>%1 (space bar)</translation>
    </message>
    <message>
        <source>Ascolto</source>
        <translation>Listening</translation>
    </message>
    <message>
        <source>Ferma</source>
        <translation>Stop</translation>
    </message>
    <message>
        <source>Posizione nella song</source>
        <translation>Position in the song</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volume</translation>
    </message>
    <message>
        <source>Sound font per le song MIDI</source>
        <translation>Sound font for MIDI songs</translation>
    </message>
    <message>
        <source>Scegli un sound font...</source>
        <translation>Choose a sound font...</translation>
    </message>
    <message>
        <source>Usa quello installato</source>
        <translation>Use the installed one</translation>
    </message>
    <message>
        <source>Marker</source>
        <translation>Sections</translation>
    </message>
    <message>
        <source>Vai a un marker della song</source>
        <translation>Go to a section of the song</translation>
    </message>
</context>
<context>
    <name>LibrariesDialog</name>
    <message>
        <source>Librerie usate</source>
        <translation>Libraries in use</translation>
    </message>
    <message>
        <source>Nome</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Licenza</source>
        <translation>Licence</translation>
    </message>
    <message>
        <source>A che cosa serve</source>
        <translation>What it is for</translation>
    </message>
    <message>
        <source>finestre, testi e file</source>
        <translation>windows, texts and files</translation>
    </message>
    <message>
        <source>dominio pubblico</source>
        <translation>public domain</translation>
    </message>
    <message>
        <source>catalogo, lista e cronologia</source>
        <translation>catalogue, list and history</translation>
    </message>
    <message>
        <source>lettere che il player non ha</source>
        <translation>letters that the player does not have</translation>
    </message>
    <message>
        <source>tag dei file MP3</source>
        <translation>tags of MP3 files</translation>
    </message>
    <message>
        <source>compressione della cronologia</source>
        <translation>compression of the history</translation>
    </message>
    <message>
        <source>ascolto delle song</source>
        <translation>hearing songs</translation>
    </message>
    <message>
        <source>suono delle song MIDI e MFX</source>
        <translation>sound of MIDI and MFX songs</translation>
    </message>
</context>
<context>
    <name>ShortcutsDialog</name>
    <message>
        <source>Tasti di scelta rapida</source>
        <translation>Keyboard shortcuts</translation>
    </message>
    <message>
        <source>Tasti</source>
        <translation>Keys</translation>
    </message>
    <message>
        <source>Comando</source>
        <translation>Command</translation>
    </message>
    <message>
        <source>Nelle liste</source>
        <translation>In the lists</translation>
    </message>
    <message>
        <source>Ascolta la song scelta</source>
        <translation>Listen to the chosen song</translation>
    </message>
    <message>
        <source>Contenuto della memoria</source>
        <translation>Memory contents</translation>
    </message>
    <message>
        <source>Cerca song</source>
        <translation>Search songs</translation>
    </message>
    <message>
        <source>Rileggi la memoria</source>
        <translation>Read the memory again</translation>
    </message>
</context>
<context>
    <name>InfoTableDialog</name>
    <message>
        <source>&amp;Chiudi</source>
        <translation>&amp;Close</translation>
    </message>
</context>
</TS>
