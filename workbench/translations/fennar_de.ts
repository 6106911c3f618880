<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Looks for errors in a journal without running it.</source>
        <translation>Sucht in einem Journal nach Fehlern, ohne es auszuführen.</translation>
    </message>
    <message>
        <source>Lists the components.</source>
        <translation>Listet die Komponenten auf.</translation>
    </message>
    <message>
        <source>Prints its words.</source>
        <translation>Gibt seine Wörter aus.</translation>
    </message>
    <message>
        <source>Opens a journal or a Python script in the journal editor.</source>
        <translation>Öffnet ein Journal oder Python-Skript im Journal-Editor.</translation>
    </message>
    <message>
        <source>Shows a command in the command panel.</source>
        <translation>Zeigt einen Befehl in der Befehlsleiste.</translation>
    </message>
    <message>
        <source>Lists all commands, or explains one.</source>
        <translation>Listet alle Befehle auf oder erklärt einen davon.</translation>
    </message>
    <message>
        <source>Closes a window other than the main window.</source>
        <translation>Schließt ein anderes Fenster als das Hauptfenster.</translation>
    </message>
    <message>
        <source>Loads a component, now and at each start.</source>
        <translation>Lädt eine Komponente, jetzt und bei jedem Start.</translation>
    </message>
    <message>
        <source>Declares a variable that whoever plays the journal may set.</source>
        <translation>Deklariert eine Variable, die beim Abspielen des Journals gesetzt werden kann.</translation>
    </message>
    <message>
        <source>Writes a picture of a window.</source>
        <translation>Schreibt ein Bild eines Fensters.</translation>
    </message>
    <message>
        <source>Plays a journal or a Python script.</source>
        <translation>Spielt ein Journal oder ein Python-Skript ab.</translation>
    </message>
    <message>
        <source>Runs a Python statement.</source>
        <translation>Führt eine Python-Anweisung aus.</translation>
    </message>
    <message>
        <source>Ends the application.</source>
        <translation>Beendet die Anwendung.</translation>
    </message>
    <message>
        <source>Makes again what was undone last.</source>
        <translation>Stellt wieder her, was zuletzt rückgängig gemacht wurde.</translation>
    </message>
    <message>
        <source>Tells or sets the colors of the windows.</source>
        <translation>Nennt oder setzt die Farben der Fenster.</translation>
    </message>
    <message>
        <source>Selects what is named, and nothing else.</source>
        <translation>Wählt aus, was genannt ist, und nichts anderes.</translation>
    </message>
    <message>
        <source>Sets a variable, shows one, or lists all.</source>
        <translation>Setzt eine Variable, zeigt eine oder listet alle auf.</translation>
    </message>
    <message>
        <source>Shows a window, or a page of the options.</source>
        <translation>Zeigt ein Fenster oder eine Seite der Optionen.</translation>
    </message>
    <message>
        <source>Takes back the last command that has changed the model.</source>
        <translation>Nimmt den letzten Befehl zurück, der das Modell geändert hat.</translation>
    </message>
    <message>
        <source>Unloads a component, now and at each start.</source>
        <translation>Entlädt eine Komponente, jetzt und bei jedem Start.</translation>
    </message>
    <message>
        <source>Lists the lines typed so far, or the steps that can be undone and redone.</source>
        <translation>Listet die bisher eingegebenen Zeilen auf oder die Schritte, die rückgängig gemacht und wiederholt werden können.</translation>
    </message>
</context>
<context>
    <name>CommandError</name>
    <message>
        <source>the ending of the file tells no format of pictures, as .png or .jpg does</source>
        <translation>die Endung der Datei nennt kein Bildformat, wie es .png oder .jpg tun</translation>
    </message>
    <message>
        <source>a variable that is set</source>
        <translation>eine Variable, die gesetzt ist</translation>
    </message>
    <message>
        <source>a parameter and its value as NAME=VALUE</source>
        <translation>ein Parameter und sein Wert als NAME=WERT</translation>
    </message>
    <message>
        <source>only a journal that is played from line 1 takes values</source>
        <translation>nur ein Journal, das ab Zeile 1 abgespielt wird, nimmt Werte an</translation>
    </message>
    <message>
        <source>a Python script cannot be checked</source>
        <translation>ein Python-Skript kann nicht geprüft werden</translation>
    </message>
    <message>
        <source>the end of the line</source>
        <translation>das Ende der Zeile</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 oder %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was named already</source>
        <translation>&quot;%1&quot; wurde schon genannt</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>eine ganze Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>a number from %1 to %2</source>
        <translation>eine Zahl von %1 bis %2</translation>
    </message>
    <message>
        <source>a whole number from %1 on</source>
        <translation>eine ganze Zahl ab %1</translation>
    </message>
    <message>
        <source>a number from %1 on</source>
        <translation>eine Zahl ab %1</translation>
    </message>
    <message>
        <source>a whole number up to %1</source>
        <translation>eine ganze Zahl bis %1</translation>
    </message>
    <message>
        <source>a number up to %1</source>
        <translation>eine Zahl bis %1</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>eine ganze Zahl</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>eine Zahl</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>erwartet: %1, gefunden: %2</translation>
    </message>
    <message>
        <source>there is nothing to choose from</source>
        <translation>es gibt nichts zur Auswahl</translation>
    </message>
    <message>
        <source>the maximum is less than the minimum</source>
        <translation>das Maximum ist kleiner als das Minimum</translation>
    </message>
</context>
<context>
    <name>CommandParameter</name>
    <message>
        <source>Components</source>
        <translation>Komponenten</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>Komponente</translation>
    </message>
    <message>
        <source>By name</source>
        <translation>Nach Namen</translation>
    </message>
    <message>
        <source>From a file</source>
        <translation>Aus einer Datei</translation>
    </message>
    <message>
        <source>Quotes keep blanks; $NAME is a variable.</source>
        <translation>Anführungszeichen bewahren Leerzeichen; $NAME ist eine Variable.</translation>
    </message>
    <message>
        <source>Journals</source>
        <translation>Journale</translation>
    </message>
    <message>
        <source>Python Scripts</source>
        <translation>Python-Skripte</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>Wörter</translation>
    </message>
    <message>
        <source>Variable</source>
        <translation>Variable</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Wert</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>Zeilen</translation>
    </message>
    <message>
        <source>Journal or script</source>
        <translation>Journal oder Skript</translation>
    </message>
    <message>
        <source>From line</source>
        <translation>Ab Zeile</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>Elemente</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>For how long</source>
        <translation>Wie lange</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>A window</source>
        <translation>Ein Fenster</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>A page of the options</source>
        <translation>Eine Seite der Optionen</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>Verzögerung</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>Anweisung</translation>
    </message>
    <message>
        <source>A file</source>
        <translation>Eine Datei</translation>
    </message>
    <message>
        <source>A folded line of the console</source>
        <translation>Eine gefaltete Zeile der Konsole</translation>
    </message>
    <message>
        <source>One step of a journal</source>
        <translation>Ein Schritt eines Journals</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>Parameter</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>Typ</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Vorgabe</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>Whole number</source>
        <translation>Ganze Zahl</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>Text</translation>
    </message>
    <message>
        <source>Choices</source>
        <translation>Auswahlmöglichkeiten</translation>
    </message>
    <message>
        <source>Choice</source>
        <translation>Auswahl</translation>
    </message>
    <message>
        <source>As size=2, parted by blanks</source>
        <translation>Wie size=2, durch Leerzeichen getrennt</translation>
    </message>
    <message>
        <source>Parted by blanks</source>
        <translation>Durch Leerzeichen getrennt</translation>
    </message>
    <message>
        <source>Lines typed</source>
        <translation>Eingegebene Zeilen</translation>
    </message>
    <message>
        <source>Steps of the model</source>
        <translation>Schritte des Modells</translation>
    </message>
    <message>
        <source>Line number</source>
        <translation>Zeilennummer</translation>
    </message>
    <message>
        <source>Real number</source>
        <translation>Reelle Zahl</translation>
    </message>
</context>
<context>
    <name>CommandSearch</name>
    <message>
        <source>Not available now.</source>
        <translation>Jetzt nicht verfügbar.</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Command %1</source>
        <translation>Befehl %1</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>Recent file in %1</source>
        <translation>Zuletzt verwendet, in %1</translation>
    </message>
</context>
<context>
    <name>JournalCheck</name>
    <message>
        <source>Chec&amp;k</source>
        <translation>Prü&amp;fen</translation>
    </message>
</context>
<context>
    <name>Navigation</name>
    <message>
        <source>Run</source>
        <translation>Ausführen</translation>
    </message>
    <message>
        <source>Run journals and statements.</source>
        <translation>Journale und Anweisungen ausführen.</translation>
    </message>
    <message>
        <source>Play Journal</source>
        <translation>Journal abspielen</translation>
    </message>
    <message>
        <source>Python Statement</source>
        <translation>Python-Anweisung</translation>
    </message>
    <message>
        <source>Ask</source>
        <translation>Abfragen</translation>
    </message>
    <message>
        <source>Find out what there is and what was done.</source>
        <translation>Nachsehen, was es gibt und was getan wurde.</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>List Components</source>
        <translation>Komponenten auflisten</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>Ändern</translation>
    </message>
    <message>
        <source>Change the session or end it.</source>
        <translation>Die Sitzung ändern oder beenden.</translation>
    </message>
    <message>
        <source>Variables</source>
        <translation>Variablen</translation>
    </message>
    <message>
        <source>Values that commands can refer to.</source>
        <translation>Werte, auf die sich Befehle beziehen können.</translation>
    </message>
    <message>
        <source>Set Variable</source>
        <translation>Variable setzen</translation>
    </message>
    <message>
        <source>Console</source>
        <translation>Konsole</translation>
    </message>
    <message>
        <source>The text of the console.</source>
        <translation>Der Text der Konsole.</translation>
    </message>
    <message>
        <source>Echo Text</source>
        <translation>Text ausgeben</translation>
    </message>
    <message>
        <source>Components</source>
        <translation>Komponenten</translation>
    </message>
    <message>
        <source>What can be added to the application.</source>
        <translation>Was der Anwendung hinzugefügt werden kann.</translation>
    </message>
    <message>
        <source>Load Component</source>
        <translation>Komponente laden</translation>
    </message>
    <message>
        <source>Unload Component</source>
        <translation>Komponente entladen</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>Sitzung</translation>
    </message>
    <message>
        <source>The running application and its console.</source>
        <translation>Die laufende Anwendung und ihre Konsole.</translation>
    </message>
    <message>
        <source>What is shown in the console.</source>
        <translation>Was auf der Konsole zu sehen ist.</translation>
    </message>
    <message>
        <source>Scripts</source>
        <translation>Skripte</translation>
    </message>
    <message>
        <source>Journals and Python.</source>
        <translation>Journale und Python.</translation>
    </message>
    <message>
        <source>Journals</source>
        <translation>Journale</translation>
    </message>
    <message>
        <source>Files of commands.</source>
        <translation>Dateien mit Befehlen.</translation>
    </message>
    <message>
        <source>Python</source>
        <translation>Python</translation>
    </message>
    <message>
        <source>The Python interpreter of the application.</source>
        <translation>Der Python-Interpreter der Anwendung.</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>Zählen</translation>
    </message>
    <message>
        <source>List Solids</source>
        <translation>Körper auflisten</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>Fenster</translation>
    </message>
    <message>
        <source>The windows of the program and their colors.</source>
        <translation>Die Fenster des Programms und ihre Farben.</translation>
    </message>
    <message>
        <source>Show Window</source>
        <translation>Fenster zeigen</translation>
    </message>
    <message>
        <source>Hide Window</source>
        <translation>Fenster schließen</translation>
    </message>
    <message>
        <source>Edit Journal</source>
        <translation>Journal bearbeiten</translation>
    </message>
    <message>
        <source>Show Form</source>
        <translation>Formular zeigen</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>Farben</translation>
    </message>
    <message>
        <source>Recover Unsaved Work</source>
        <translation>Arbeit wiederherstellen</translation>
    </message>
    <message>
        <source>Check Journal</source>
        <translation>Journal prüfen</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Declare Parameter</source>
        <translation>Parameter deklarieren</translation>
    </message>
</context>
<context>
    <name>Ostrel</name>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
</context>
<context>
    <name>QtCommandSearch</name>
    <message>
        <source>Find command</source>
        <translation>Befehl finden</translation>
    </message>
    <message>
        <source>Commands found</source>
        <translation>Gefundene Befehle</translation>
    </message>
    <message>
        <source>Command, menu entry, option or recent file</source>
        <translation>Befehl, Menüeintrag, Option oder zuletzt verwendete Datei</translation>
    </message>
</context>
<context>
    <name>QtEditorOptions</name>
    <message>
        <source>Journal Editor</source>
        <translation>Journal-Editor</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>Sprache</translation>
    </message>
    <message>
        <source>Commands, keywords, numbers, strings, names and comments in colors of their own. Long documents stay plain.</source>
        <translation>Befehle, Schlüsselwörter, Zahlen, Zeichenketten, Namen und Kommentare in eigenen Farben. Lange Dokumente bleiben einfarbig.</translation>
    </message>
    <message>
        <source>C&amp;olor the words of journals and Python scripts</source>
        <translation>Wörter in Journalen und Python-Skripten &amp;färben</translation>
    </message>
    <message>
        <source>Where something fits Tab completes what is typed, as on the console. Elsewhere it indents.</source>
        <translation>Wo etwas passt, vervollständigt Tab das Getippte wie in der Konsole. Sonst rückt es ein.</translation>
    </message>
    <message>
        <source>Complete with &amp;Tab</source>
        <translation>Mit &amp;Tab vervollständigen</translation>
    </message>
</context>
<context>
    <name>QtPanelOptions</name>
    <message>
        <source>Panel</source>
        <translation>Befehlsleiste</translation>
    </message>
    <message>
        <source>Command Panel</source>
        <translation>Befehlsleiste</translation>
    </message>
    <message>
        <source>&amp;Rows of buttons, one below the other</source>
        <translation>&amp;Reihen von Schaltflächen untereinander</translation>
    </message>
    <message>
        <source>One &amp;level at a time, and the way that led there</source>
        <translation>Jeweils eine &amp;Ebene und der Weg dorthin</translation>
    </message>
    <message>
        <source>Large pictures above the titles of the level</source>
        <translation>Große Bilder über den Titeln der Ebene</translation>
    </message>
    <message>
        <source>Large &amp;pictures</source>
        <translation>Große &amp;Bilder</translation>
    </message>
    <message>
        <source>Arrangement of the Commands</source>
        <translation>Anordnung der Befehle</translation>
    </message>
    <message>
        <source>By what you want to &amp;do</source>
        <translation>Nach dem, was Sie &amp;tun wollen</translation>
    </message>
    <message>
        <source>By what you &amp;work on</source>
        <translation>Nach dem, womit Sie &amp;arbeiten</translation>
    </message>
</context>
<context>
    <name>UndoOptions</name>
    <message>
        <source>&amp;Memory for undo</source>
        <translation>Speicher &amp;für Rückgängig</translation>
    </message>
    <message>
        <source>The oldest steps are forgotten where all would take more. 0 keeps none.</source>
        <translation>Die ältesten Schritte werden vergessen, wenn alle mehr brauchten. Bei 0 bleibt keiner.</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>Belegt</translation>
    </message>
    <message>
        <source>%1 MiB, steps: %2</source>
        <translation>%1 MiB, Schritte: %2</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>There is nothing to undo.</source>
        <translation>Es gibt nichts rückgängig zu machen.</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>There is nothing to redo.</source>
        <translation>Es gibt nichts wiederherzustellen.</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
</context>
<context>
    <name>Workbench</name>
    <message>
        <source>Version %1, the workbench of Ostrel</source>
        <translation>Version %1, die Workbench von Ostrel</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>Plugins</translation>
    </message>
    <message>
        <source>Loading the main window</source>
        <translation>Das Hauptfenster wird geladen</translation>
    </message>
    <message>
        <source>Commands: %1</source>
        <translation>Befehle: %1</translation>
    </message>
    <message>
        <source>Needs: %1</source>
        <translation>Braucht: %1</translation>
    </message>
</context>
<context>
    <name>fennar::ClauseRow</name>
    <message>
        <source>%1 (optional):</source>
        <translation>%1 (optional):</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1:</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1 must be filled in.</source>
        <translation>%1 muss ausgefüllt werden.</translation>
    </message>
    <message>
        <source>%1 must be filled in, too.</source>
        <translation>%1 muss ebenfalls ausgefüllt werden.</translation>
    </message>
    <message>
        <source>%1: the numbers must not all be 0.</source>
        <translation>%1: die Zahlen dürfen nicht alle 0 sein.</translation>
    </message>
</context>
<context>
    <name>fennar::ColorScheme</name>
    <message>
        <source>S&amp;ystem Colors</source>
        <translation>S&amp;ystemfarben</translation>
    </message>
    <message>
        <source>Li&amp;ght Colors</source>
        <translation>Helle F&amp;arben</translation>
    </message>
    <message>
        <source>&amp;Dark Colors</source>
        <translation>Dun&amp;kle Farben</translation>
    </message>
</context>
<context>
    <name>fennar::CommandFinder</name>
    <message>
        <source>&amp;Find Command...</source>
        <translation>Befehl &amp;finden...</translation>
    </message>
    <message>
        <source>Journal Editor</source>
        <translation>Journal-Editor</translation>
    </message>
    <message>
        <source>Not while a command is running.</source>
        <translation>Nicht, während ein Befehl läuft.</translation>
    </message>
    <message>
        <source>No loaded component does this.</source>
        <translation>Keine geladene Komponente kann das.</translation>
    </message>
</context>
<context>
    <name>fennar::CommandForm</name>
    <message>
        <source>Apply</source>
        <translation>Anwenden</translation>
    </message>
    <message>
        <source>Command line</source>
        <translation>Befehlszeile</translation>
    </message>
    <message>
        <source>Run the command line</source>
        <translation>Die Befehlszeile ausführen</translation>
    </message>
    <message>
        <source>Apply %1</source>
        <translation>%1 anwenden</translation>
    </message>
    <message>
        <source>Edit the line</source>
        <translation>Zeile bearbeiten</translation>
    </message>
    <message>
        <source>Way to use the command</source>
        <translation>Form des Befehls</translation>
    </message>
    <message>
        <source>Write the command line yourself</source>
        <translation>Die Befehlszeile selbst schreiben</translation>
    </message>
</context>
<context>
    <name>fennar::CommandSearch</name>
    <message>
        <source>Nothing found.</source>
        <translation>Nichts gefunden.</translation>
    </message>
</context>
<context>
    <name>fennar::ConsoleOwner</name>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>Fehler</translation>
    </message>
    <message>
        <source>&amp;Commands of the Console</source>
        <translation>&amp;Befehle der Konsole</translation>
    </message>
    <message>
        <source>&amp;Errors of the Console</source>
        <translation>&amp;Fehler der Konsole</translation>
    </message>
    <message>
        <source>The command history cannot be written; it will be lost at the end.
</source>
        <translation>Der Befehlsverlauf kann nicht geschrieben werden; er geht am Ende verloren.
</translation>
    </message>
</context>
<context>
    <name>fennar::ErrorPage</name>
    <message>
        <source>Double-click an error, or press Enter on it, to see its line in the journal editor.</source>
        <translation>Ein Doppelklick auf einen Fehler oder die Eingabetaste zeigt seine Zeile im Journal-Editor.</translation>
    </message>
    <message>
        <source>&amp;Show in Journal Editor</source>
        <translation>Im Journal-Editor &amp;zeigen</translation>
    </message>
</context>
<context>
    <name>fennar::FormField</name>
    <message>
        <source>%1 in %2</source>
        <translation>%1 in %2</translation>
    </message>
    <message>
        <source>not given</source>
        <translation>ohne</translation>
    </message>
    <message>
        <source>Add to %1</source>
        <translation>Zu %1 hinzufügen</translation>
    </message>
    <message>
        <source>Choose %1</source>
        <translation>%1 wählen</translation>
    </message>
    <message>
        <source>There is nothing to choose.</source>
        <translation>Es gibt nichts auszuwählen.</translation>
    </message>
    <message>
        <source>%1: a quote is not closed, or a variable is not set.</source>
        <translation>%1: ein Anführungszeichen ist nicht geschlossen oder eine Variable nicht gesetzt.</translation>
    </message>
    <message>
        <source>%1: there is no variable %2.</source>
        <translation>%1: die Variable %2 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1: there is no &quot;%2&quot;.</source>
        <translation>%1: „%2“ gibt es nicht.</translation>
    </message>
    <message>
        <source>%1: a letter, then letters, digits, &quot;_&quot;, &quot;-&quot; and &quot;.&quot;.</source>
        <translation>%1: ein Buchstabe, dann Buchstaben, Ziffern, „_“, „-“ und „.“.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has a meaning of its own.</source>
        <translation>%1: „%2“ hat eine eigene Bedeutung.</translation>
    </message>
    <message>
        <source>%1: there is a &quot;%2&quot; already.</source>
        <translation>%1: „%2“ gibt es schon.</translation>
    </message>
    <message>
        <source>%1: a letter, then letters, digits and &quot;_&quot;.</source>
        <translation>%1: ein Buchstabe, dann Buchstaben, Ziffern und „_“.</translation>
    </message>
    <message>
        <source>%1: there is no file %2.</source>
        <translation>%1: die Datei %2 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1: there is no folder %2.</source>
        <translation>%1: den Ordner %2 gibt es nicht.</translation>
    </message>
    <message>
        <source>%1: %2 is a folder.</source>
        <translation>%1: %2 ist ein Ordner.</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; stands alone.</source>
        <translation>%1: „%2“ steht allein.</translation>
    </message>
    <message>
        <source>%1: each one only once.</source>
        <translation>%1: jeder nur einmal.</translation>
    </message>
    <message numerus="yes">
        <source>%1: at least %n.</source>
        <translation>
            <numerusform>%1: mindestens %n.</numerusform>
            <numerusform>%1: mindestens %n.</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1: %2.</translation>
    </message>
</context>
<context>
    <name>fennar::HistorySearch</name>
    <message>
        <source>Not in the history: %1</source>
        <translation>Nicht im Verlauf: %1</translation>
    </message>
    <message>
        <source>Search in the history: %1</source>
        <translation>Suche im Verlauf: %1</translation>
    </message>
</context>
<context>
    <name>fennar::JournalFiles</name>
    <message>
        <source>it is not a regular file, and cannot be compared with the text</source>
        <translation>sie ist keine gewöhnliche Datei und lässt sich nicht mit dem Text vergleichen</translation>
    </message>
    <message>
        <source>it cannot be read back</source>
        <translation>sie lässt sich nicht zurücklesen</translation>
    </message>
    <message>
        <source>it has only %1 of %2 bytes</source>
        <translation>sie hat nur %1 von %2 Bytes</translation>
    </message>
    <message>
        <source>%1 does not hold the whole journal: %2</source>
        <translation>%1 enthält nicht das ganze Journal: %2</translation>
    </message>
    <message>
        <source>Journal Not Saved</source>
        <translation>Journal nicht gespeichert</translation>
    </message>
    <message>
        <source>The disk may be full. The journal counts as unsaved, and stays in the editor.</source>
        <translation>Vielleicht ist der Datenträger voll. Das Journal gilt als ungespeichert und bleibt im Editor.</translation>
    </message>
    <message>
        <source>Journal Changed on Disk</source>
        <translation>Journal auf dem Datenträger geändert</translation>
    </message>
    <message>
        <source>%1 was changed by another program.</source>
        <translation>%1 wurde von einem anderen Programm geändert.</translation>
    </message>
    <message>
        <source>The journal has unsaved changes, too.</source>
        <translation>Auch das Journal hat ungespeicherte Änderungen.</translation>
    </message>
    <message>
        <source>Until you decide, the journal is not saved. Reloading can be undone.</source>
        <translation>Bis zu Ihrer Entscheidung wird das Journal nicht gespeichert. Das Neuladen lässt sich rückgängig machen.</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>&amp;Neu laden</translation>
    </message>
    <message>
        <source>&amp;Keep the Journal</source>
        <translation>Journal &amp;behalten</translation>
    </message>
    <message>
        <source>&amp;Compare...</source>
        <translation>&amp;Vergleichen...</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>&amp;Später</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>%1 kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Differences of %1</source>
        <translation>Unterschiede in %1</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>Unterschiede</translation>
    </message>
    <message>
        <source>- only in the journal
+ only in the file</source>
        <translation>- nur im Journal
+ nur in der Datei</translation>
    </message>
</context>
<context>
    <name>fennar::JournalPlayer</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>select from line %1 on in the journal editor and press Ctrl+F5</source>
        <translation>im Journal-Editor ab Zeile %1 auswählen und Strg+F5 drücken</translation>
    </message>
    <message>
        <source>ERROR: a journal of the editor is being played; %1 is not
</source>
        <translation>ERROR: ein Journal des Editors wird abgespielt, %1 daher nicht
</translation>
    </message>
    <message>
        <source>Playing %1</source>
        <translation>%1 wird abgespielt</translation>
    </message>
    <message>
        <source>Play Journal File</source>
        <translation>Journaldatei abspielen</translation>
    </message>
    <message>
        <source>Journal Files (*.jou *.py);;All Files (*.*)</source>
        <translation>Journaldateien (*.jou *.py);;Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Show Error</source>
        <translation>Fehler zeigen</translation>
    </message>
    <message>
        <source>The document that was played has been closed and is in no file.</source>
        <translation>Das abgespielte Dokument wurde geschlossen und steht in keiner Datei.</translation>
    </message>
</context>
<context>
    <name>fennar::LevelView</name>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Go to %1</source>
        <translation>Zu %1 gehen</translation>
    </message>
</context>
<context>
    <name>fennar::PanelView</name>
    <message>
        <source>There are no commands.</source>
        <translation>Es gibt keine Befehle.</translation>
    </message>
</context>
<context>
    <name>fennar::WindowKeys</name>
    <message>
        <source>&amp;Next Pane</source>
        <translation>Nä&amp;chster Bereich</translation>
    </message>
    <message>
        <source>&amp;Previous Pane</source>
        <translation>Vorheri&amp;ger Bereich</translation>
    </message>
</context>
</TS>
