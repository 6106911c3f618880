<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CommandWidget</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
</context>
<context>
    <name>CommandWindow</name>
    <message>
        <source>Command Line Workspace</source>
        <translation>Arbeitsbereich der Befehlszeile</translation>
    </message>
    <message>
        <source>Command Mode</source>
        <translation>Befehlsmodus</translation>
    </message>
    <message>
        <source>Python Mode</source>
        <translation>Python-Modus</translation>
    </message>
</context>
<context>
    <name>ComponentTool</name>
    <message>
        <source>Select Folder</source>
        <translation>Ordner auswählen</translation>
    </message>
</context>
<context>
    <name>FileLineEdit</name>
    <message>
        <source>Form</source>
        <translation>Formular</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
</context>
<context>
    <name>HelpAboutOstrel</name>
    <message>
        <source>%1 includes:
</source>
        <translation>%1 enthält:
</translation>
    </message>
    <message>
        <source>Qt %1</source>
        <translation>Qt %1</translation>
    </message>
    <message>
        <source> by The Qt Company
</source>
        <translation> von The Qt Company
</translation>
    </message>
    <message>
        <source>Python %1.%2.%3 (www.python.org)</source>
        <translation>Python %1.%2.%3 (www.python.org)</translation>
    </message>
</context>
<context>
    <name>JournalDocument</name>
    <message>
        <source>Play Selected</source>
        <translation>Auswahl abspielen</translation>
    </message>
    <message>
        <source>Translate Selected to Python</source>
        <translation>Auswahl in Python übersetzen</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Comment Selection</source>
        <translation>Auswahl auskommentieren</translation>
    </message>
    <message>
        <source>Un-Comment Selection</source>
        <translation>Auskommentierung aufheben</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>Suchen...</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Leeren</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>Alles auswählen</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>Journal</translation>
    </message>
</context>
<context>
    <name>JournalEditor</name>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Journal Files (*.jou *.py);;All Files (*.*)</source>
        <translation>Journaldateien (*.jou *.py);;Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source>Journal Editor</source>
        <translation>Journal-Editor</translation>
    </message>
    <message>
        <source>File Error</source>
        <translation>Dateifehler</translation>
    </message>
    <message>
        <source>Unable to open the file.</source>
        <translation>Die Datei kann nicht geöffnet werden.</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>The document has been modified.
Do you wish to save the changes?</source>
        <translation>Das Dokument wurde geändert.
Möchten Sie die Änderungen speichern?</translation>
    </message>
    <message>
        <source>Never prompt me when there is unsaved data.</source>
        <translation>Bei nicht gespeicherten Daten nie nachfragen.</translation>
    </message>
    <message>
        <source>Unable to save the file.</source>
        <translation>Die Datei kann nicht gespeichert werden.</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Journal files (*.jou *.py);;All Files (*.*)</source>
        <translation>Journaldateien (*.jou *.py);;Alle Dateien (*.*)</translation>
    </message>
    <message>
        <source> already exists.
Do you want to replace it?</source>
        <translation> ist bereits vorhanden.
Möchten Sie die Datei ersetzen?</translation>
    </message>
</context>
<context>
    <name>JournalFindDialog</name>
    <message>
        <source>Find in Journal File</source>
        <translation>In der Journaldatei suchen</translation>
    </message>
    <message>
        <source>Find What:</source>
        <translation>Suchen nach:</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>Groß-/Kleinschreibung beachten</translation>
    </message>
    <message>
        <source>Search for Whole Words</source>
        <translation>Nur ganze Wörter</translation>
    </message>
    <message>
        <source>Search Up</source>
        <translation>Aufwärts suchen</translation>
    </message>
    <message>
        <source>Wrap Search</source>
        <translation>Am Ende von vorn beginnen</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>Schl&amp;ießen</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>&amp;Weiter</translation>
    </message>
    <message>
        <source>Find What</source>
        <translation>Suchbegriff</translation>
    </message>
</context>
<context>
    <name>MessageSettingBox</name>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>&amp;Yes to All</source>
        <translation>Ja für a&amp;lle</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>&amp;No to All</source>
        <translation>N&amp;ein für alle</translation>
    </message>
    <message>
        <source>&amp;Abort</source>
        <translation>Abb&amp;ruch</translation>
    </message>
    <message>
        <source>&amp;Retry</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>&amp;Ignore</source>
        <translation>&amp;Ignorieren</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
</context>
<context>
    <name>Ostrel</name>
    <message>
        <source>File Tools</source>
        <translation>Datei-Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;Command Line</source>
        <translation>&amp;Befehlszeile</translation>
    </message>
    <message>
        <source>Show/hide command line workspace</source>
        <translation>Arbeitsbereich der Befehlszeile ein-/ausblenden</translation>
    </message>
    <message>
        <source>Command Panel</source>
        <translation>Befehlsleiste</translation>
    </message>
    <message>
        <source>Show/hide command panel</source>
        <translation>Befehlsleiste ein-/ausblenden</translation>
    </message>
    <message>
        <source>Line up</source>
        <translation>Ausrichten</translation>
    </message>
    <message>
        <source>Command Line</source>
        <translation>Befehlszeile</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>&amp;Fenster</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
</context>
<context>
    <name>OstrelFileMenu</name>
    <message>
        <source>ERROR: Missing open/save handler.
</source>
        <translation>ERROR: Es gibt keine Komponente zum Öffnen und Speichern.
</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>&amp;Importieren...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>&amp;Exportieren...</translation>
    </message>
    <message>
        <source>Set &amp;Directory</source>
        <translation>&amp;Verzeichnis festlegen</translation>
    </message>
    <message>
        <source>Sets the current working directory</source>
        <translation>Legt das aktuelle Arbeitsverzeichnis fest</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>&amp;Beenden</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Recent Imports</source>
        <translation>&amp;Zuletzt importiert</translation>
    </message>
    <message>
        <source>Working Directory: </source>
        <translation>Arbeitsverzeichnis: </translation>
    </message>
    <message>
        <source>The data has been modified.
Do you wish to save the changes?</source>
        <translation>Die Daten wurden geändert.
Möchten Sie die Änderungen speichern?</translation>
    </message>
    <message>
        <source>Never prompt me when there is unsaved data.</source>
        <translation>Bei nicht gespeicherten Daten nie nachfragen.</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>selected filter: </source>
        <translation>gewählter Filter: </translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>Import File</source>
        <translation>Datei importieren</translation>
    </message>
    <message>
        <source>Genesis/Exodus (*.g *.gen *.e* *.exo)</source>
        <translation>Genesis/Exodus (*.g *.gen *.e* *.exo)</translation>
    </message>
    <message>
        <source>Export File</source>
        <translation>Datei exportieren</translation>
    </message>
</context>
<context>
    <name>OstrelGUIOptions</name>
    <message>
        <source>Layout</source>
        <translation>Layout</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
</context>
<context>
    <name>OstrelHelpMenu</name>
    <message>
        <source>&amp;Help</source>
        <translation>&amp;Hilfe</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>Ü&amp;ber</translation>
    </message>
</context>
<context>
    <name>OstrelToolsMenu</name>
    <message>
        <source>&amp;Tools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;Journal Editor</source>
        <translation>&amp;Journal-Editor</translation>
    </message>
    <message>
        <source>Journal Editor</source>
        <translation>Journal-Editor</translation>
    </message>
    <message>
        <source>&amp;Play Journal File</source>
        <translation>Journaldatei ab&amp;spielen</translation>
    </message>
    <message>
        <source>Play Journal File</source>
        <translation>Journaldatei abspielen</translation>
    </message>
    <message>
        <source>Play ID-less Fennar Journal File</source>
        <translation>Fennar-Journaldatei ohne IDs abspielen</translation>
    </message>
    <message>
        <source>Pause Script</source>
        <translation>Skript anhalten</translation>
    </message>
    <message>
        <source>Pause Script Playback (Ctrl+I)</source>
        <translation>Abspielen des Skripts anhalten (Strg+I)</translation>
    </message>
    <message>
        <source>Plu&amp;gins...</source>
        <translation>Plu&amp;gins...</translation>
    </message>
    <message>
        <source>Plugin Tool</source>
        <translation>Plugin-Verwaltung</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>&amp;Optionen...</translation>
    </message>
    <message>
        <source>Set program options</source>
        <translation>Programmoptionen festlegen</translation>
    </message>
</context>
<context>
    <name>OstrelViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>&amp;Ansicht</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>Werkzeugleisten</translation>
    </message>
</context>
<context>
    <name>QtComponentTool</name>
    <message>
        <source>Plugin Directories</source>
        <translation>Plugin-Verzeichnisse</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>Plugins</translation>
    </message>
    <message>
        <source>Loading Locations</source>
        <translation>Ladeorte</translation>
    </message>
    <message>
        <source>The list of plugins registered with the framework. If the ckeck box in the left column of a plugin is checked, the plugin will be loaded on startup. If the box is not checked, the plugin will be in the list, but it will not be loaded when the framework starts up.</source>
        <translation>Die Liste der beim Framework angemeldeten Plugins. Ist das Kästchen in der linken Spalte eines Plugins angekreuzt, wird das Plugin beim Start geladen. Ist es nicht angekreuzt, steht das Plugin in der Liste, wird beim Start des Frameworks aber nicht geladen.</translation>
    </message>
    <message>
        <source>Adds a plugin to the framework. You must click save in order to have Ostrel load the plugin the next time it starts up.</source>
        <translation>Fügt dem Framework ein Plugin hinzu. Damit Ostrel das Plugin beim nächsten Start lädt, muss gespeichert werden.</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>&amp;Hinzufügen</translation>
    </message>
    <message>
        <source>Alt+A</source>
        <translation>Alt+H</translation>
    </message>
    <message>
        <source>Removes a plugin from the framework. The plugin must be unloaded before it can be removed. You must click save to prevent Ostrel from loading the plugin the next time it starts up.</source>
        <translation>Entfernt ein Plugin aus dem Framework. Das Plugin muss vorher entladen werden. Damit Ostrel das Plugin beim nächsten Start nicht mehr lädt, muss gespeichert werden.</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>&amp;Entfernen</translation>
    </message>
    <message>
        <source>Alt+R</source>
        <translation>Alt+E</translation>
    </message>
    <message>
        <source>Moves a plugin up in the list. The changes will only take effect after saving and restarting Ostrel.</source>
        <translation>Verschiebt ein Plugin in der Liste nach oben. Die Änderung wird erst nach dem Speichern und einem Neustart von Ostrel wirksam.</translation>
    </message>
    <message>
        <source>Moves a plugin down in the list. The changes will only take effect after saving and restarting Ostrel.</source>
        <translation>Verschiebt ein Plugin in der Liste nach unten. Die Änderung wird erst nach dem Speichern und einem Neustart von Ostrel wirksam.</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>Nach oben</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>Nach unten</translation>
    </message>
</context>
<context>
    <name>QtGeneralOptions</name>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Unsaved Data</source>
        <translation>Nicht gespeicherte Daten</translation>
    </message>
    <message>
        <source>When this option is turned on, Ostrel will prompt you to save when the data has been modified.</source>
        <translation>Ist diese Option eingeschaltet, fragt Ostrel bei geänderten Daten nach, ob gespeichert werden soll.</translation>
    </message>
    <message>
        <source>Prompt for Unsaved Application Data</source>
        <translation>Bei nicht gespeicherten Anwendungsdaten nachfragen</translation>
    </message>
    <message>
        <source>When this option is turned on, the journal editor will prompt you to save when the document has been modified.</source>
        <translation>Ist diese Option eingeschaltet, fragt der Journal-Editor bei geändertem Dokument nach, ob gespeichert werden soll.</translation>
    </message>
    <message>
        <source>Prompt for Unsaved Journal Data</source>
        <translation>Bei nicht gespeicherten Journaldaten nachfragen</translation>
    </message>
    <message>
        <source>Script Playback</source>
        <translation>Abspielen von Skripten</translation>
    </message>
    <message>
        <source>Select this option to allow the framework to change the working directory when playing a script or history file. The directory will be changed to where the script is located, which allows the script to use relative paths when referring to other files. The working directory will be changed back when the script finishes.</source>
        <translation>Mit dieser Option darf das Framework beim Abspielen eines Skripts oder einer Verlaufsdatei das Arbeitsverzeichnis wechseln, und zwar in das Verzeichnis des Skripts. So kann sich das Skript mit relativen Pfaden auf andere Dateien beziehen. Am Ende des Skripts wird in das vorherige Arbeitsverzeichnis zurückgewechselt.</translation>
    </message>
    <message>
        <source>Change to Script Directory</source>
        <translation>In das Verzeichnis des Skripts wechseln</translation>
    </message>
    <message>
        <source>Focus Follows Cursor in Command Window</source>
        <translation>Fokus folgt dem Mauszeiger im Befehlsfenster</translation>
    </message>
    <message>
        <source>This option allows you to enable or disable the startup splash screen(s).</source>
        <translation>Diese Option schaltet die Startbilder ein oder aus.</translation>
    </message>
    <message>
        <source>Enable Focus Follows Cursor</source>
        <translation>Fokus folgt dem Mauszeiger</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Show Startup Splash Screen</source>
        <translation>Startbild anzeigen</translation>
    </message>
    <message>
        <source>When enabled, restores the working directory on application startup.</source>
        <translation>Stellt beim Start der Anwendung das Arbeitsverzeichnis wieder her.</translation>
    </message>
    <message>
        <source>Restore Working Directory</source>
        <translation>Arbeitsverzeichnis wiederherstellen</translation>
    </message>
    <message>
        <source>Python</source>
        <translation>Python</translation>
    </message>
    <message>
        <source>Python Version 3</source>
        <translation>Python-Version 3</translation>
    </message>
    <message>
        <source>Use Paths</source>
        <translation>Pfade verwenden</translation>
    </message>
    <message>
        <source>Paths</source>
        <translation>Pfade</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>Durchsuchen</translation>
    </message>
</context>
<context>
    <name>QtHelpAboutOstrel</name>
    <message>
        <source>About</source>
        <translation>Über</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>Symbol</translation>
    </message>
    <message>
        <source>Product Name</source>
        <translation>Produktname</translation>
    </message>
    <message>
        <source>Product Info</source>
        <translation>Produktinformation</translation>
    </message>
    <message>
        <source>Ostrel 3rd Party</source>
        <translation>Ostrel-Drittanbieter</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>&amp;OK</translation>
    </message>
</context>
<context>
    <name>QtJournalEditor</name>
    <message>
        <source>Journal Editor</source>
        <translation>Journal-Editor</translation>
    </message>
    <message>
        <source>Tab 1</source>
        <translation>Reiter 1</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>&amp;Datei</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>&amp;Importieren</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>&amp;Bearbeiten</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>E&amp;xtras</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>&amp;Neu</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Neu</translation>
    </message>
    <message>
        <source>Ctrl+N</source>
        <translation>Ctrl+N</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>Ö&amp;ffnen...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Öffnen</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Speichern</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>Speichern &amp;unter...</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Speichern unter</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>&amp;Drucken...</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>B&amp;eenden</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>&amp;Ausschneiden</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>Ausschneiden</translation>
    </message>
    <message>
        <source>Ctrl+X</source>
        <translation>Ctrl+X</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>&amp;Kopieren</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Kopieren</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Einfügen</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>&amp;Suchen...</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Suchen</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>&amp;Abspielen</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>Abspielen</translation>
    </message>
    <message>
        <source>Plays the current file</source>
        <translation>Spielt die aktuelle Datei ab</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>&amp;Rückgängig</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>Rückgängig</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>&amp;Wiederholen</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>Wiederholen</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Sa&amp;ve All</source>
        <translation>A&amp;lle speichern</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>Alle speichern</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>&amp;Fennar</source>
        <translation>&amp;Fennar</translation>
    </message>
    <message>
        <source>Fennar</source>
        <translation>Fennar</translation>
    </message>
    <message>
        <source>Translate to Fennar Commands</source>
        <translation>In Fennar-Befehle übersetzen</translation>
    </message>
    <message>
        <source>Translate to Python</source>
        <translation>In Python übersetzen</translation>
    </message>
</context>
<context>
    <name>QtLayoutOptions</name>
    <message>
        <source>Layout</source>
        <translation>Layout</translation>
    </message>
    <message>
        <source>Command Line and Journal Font</source>
        <translation>Schrift für Befehlszeile und Journale</translation>
    </message>
    <message>
        <source>Font Family</source>
        <translation>Schriftfamilie</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>Schriftgröße</translation>
    </message>
    <message>
        <source>This displays some sample text in the selected font and size.</source>
        <translation>Zeigt einen Beispieltext in der gewählten Schrift und Größe.</translation>
    </message>
    <message>
        <source>Sample Text</source>
        <translation>Beispieltext</translation>
    </message>
    <message>
        <source>Toolbars and Docking Windows</source>
        <translation>Werkzeugleisten und andockbare Fenster</translation>
    </message>
    <message>
        <source>Checking the box next to the toolbar or docking window will display it. Unchecking the box will hide that toolbar or docking window.</source>
        <translation>Ein Häkchen neben der Werkzeugleiste oder dem andockbaren Fenster blendet sie ein. Ohne Häkchen ist die Leiste oder das Fenster ausgeblendet.</translation>
    </message>
    <message>
        <source>Look and Feel</source>
        <translation>Erscheinungsbild</translation>
    </message>
    <message>
        <source>Use Labels on Buttons</source>
        <translation>Schaltflächen beschriften</translation>
    </message>
    <message>
        <source>Handles the positioning of tabs that appear
when docking windows are stacked.</source>
        <translation>Legt fest, wo die Reiter gestapelter
andockbarer Fenster stehen.</translation>
    </message>
    <message>
        <source>Window Tab Position</source>
        <translation>Lage der Fensterreiter</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>Unten</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>Oben</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>Links</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>Rechts</translation>
    </message>
</context>
<context>
    <name>QtMessageSettingBox</name>
    <message>
        <source>Warning</source>
        <translation>Warnung</translation>
    </message>
    <message>
        <source>Warning Message</source>
        <translation>Warnmeldung</translation>
    </message>
    <message>
        <source>Don&apos;t ask me this again.</source>
        <translation>Nicht mehr nachfragen.</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>&amp;Ja</translation>
    </message>
    <message>
        <source>Alt+Y</source>
        <translation>Alt+J</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>&amp;Nein</translation>
    </message>
    <message>
        <source>Alt+N</source>
        <translation>Alt+N</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>&amp;Abbrechen</translation>
    </message>
    <message>
        <source>Alt+C</source>
        <translation>Alt+A</translation>
    </message>
</context>
<context>
    <name>QtOptionsPanel</name>
    <message>
        <source>Options</source>
        <translation>Optionen</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>&amp;Speichern</translation>
    </message>
    <message>
        <source>Alt+S</source>
        <translation>Alt+S</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>S&amp;chließen</translation>
    </message>
    <message>
        <source>Alt+C</source>
        <translation>Alt+C</translation>
    </message>
</context>
<context>
    <name>QtProgressControl</name>
    <message>
        <source>Progress</source>
        <translation>Fortschritt</translation>
    </message>
    <message>
        <source>Cancel the currently running process</source>
        <translation>Den laufenden Vorgang abbrechen</translation>
    </message>
</context>
<context>
    <name>RecentFiles</name>
    <message>
        <source>File Error</source>
        <translation>Dateifehler</translation>
    </message>
    <message>
        <source>The selected file does not exist.</source>
        <translation>Die ausgewählte Datei ist nicht vorhanden.</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>Zuletzt verwendet</translation>
    </message>
</context>
</TS>
