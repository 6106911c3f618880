<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CommandDialog</name>
    <message>
        <source>Fill in all fields; numbers have a decimal point.</source>
        <translation>Alle Felder ausfüllen; Zahlen haben einen Dezimalpunkt.</translation>
    </message>
</context>
<context>
    <name>CommandForm</name>
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
</context>
<context>
    <name>ConsoleOwner</name>
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
    <message>
        <source>ERROR: %1
</source>
        <translation>ERROR: %1
</translation>
    </message>
</context>
<context>
    <name>DemoOptions</name>
    <message>
        <source>Count to, unless told</source>
        <translation>Zählen bis, wenn nicht angegeben</translation>
    </message>
</context>
<context>
    <name>DemoWindow</name>
    <message>
        <source>&amp;Count</source>
        <translation>&amp;Zählen</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>Zu&amp;rücksetzen</translation>
    </message>
    <message>
        <source>&amp;More</source>
        <translation>&amp;Mehr</translation>
    </message>
    <message>
        <source>&amp;Less</source>
        <translation>&amp;Weniger</translation>
    </message>
    <message>
        <source>Demo &amp;Dialog...</source>
        <translation>De&amp;mo-Dialog...</translation>
    </message>
    <message>
        <source>Demo component</source>
        <translation>Demo-Komponente</translation>
    </message>
    <message>
        <source>&amp;Demo</source>
        <translation>De&amp;mo</translation>
    </message>
    <message>
        <source>Demo &amp;Help</source>
        <translation>Demo-&amp;Hilfe</translation>
    </message>
    <message>
        <source>Demo Tools</source>
        <translation>Demo-Werkzeuge</translation>
    </message>
    <message>
        <source>Demo</source>
        <translation>Demo</translation>
    </message>
    <message>
        <source>This dialog goes with its component.</source>
        <translation>Dieser Dialog verschwindet mit seiner Komponente.</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Anzahl</translation>
    </message>
</context>
<context>
    <name>DocumentKeeper</name>
    <message>
        <source>no folder can be made in &quot;%1&quot;</source>
        <translation>in „%1“ kann kein Ordner angelegt werden</translation>
    </message>
    <message>
        <source>Unsaved journals cannot be kept for a recovery: %1. It will be tried again.</source>
        <translation>Nicht gespeicherte Journale können nicht für eine Wiederherstellung aufbewahrt werden: %1. Es wird erneut versucht.</translation>
    </message>
</context>
<context>
    <name>GeometryDock</name>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Volumen</translation>
    </message>
    <message>
        <source>Solids</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keines</translation>
    </message>
    <message>
        <source>of an earlier model</source>
        <translation>zu einem früheren Modell</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>Knoten</translation>
    </message>
</context>
<context>
    <name>GeometryFileHandler</name>
    <message>
        <source>Model Files (*.mdl)</source>
        <translation>Modelldateien (*.mdl)</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>Alle Dateien (*)</translation>
    </message>
    <message>
        <source>Set Directory</source>
        <translation>Verzeichnis festlegen</translation>
    </message>
</context>
<context>
    <name>GeometryWindow</name>
    <message>
        <source>Centre (X Y Z)</source>
        <translation>Mittelpunkt (X Y Z)</translation>
    </message>
    <message>
        <source>Axis (X Y Z)</source>
        <translation>Achse (X Y Z)</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>&amp;Cylinder...</source>
        <translation>&amp;Zylinder...</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>&amp;Sphere...</source>
        <translation>&amp;Kugel...</translation>
    </message>
    <message>
        <source>C&amp;one...</source>
        <translation>K&amp;egel...</translation>
    </message>
    <message>
        <source>Top radius</source>
        <translation>Oberer Radius</translation>
    </message>
    <message>
        <source>&amp;Torus...</source>
        <translation>&amp;Torus...</translation>
    </message>
    <message>
        <source>Radius of the tube</source>
        <translation>Radius des Rohrs</translation>
    </message>
    <message>
        <source>&amp;Move...</source>
        <translation>&amp;Verschieben...</translation>
    </message>
    <message>
        <source>Solids</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>By (X Y Z)</source>
        <translation>Um (X Y Z)</translation>
    </message>
    <message>
        <source>&amp;Rotate...</source>
        <translation>&amp;Drehen...</translation>
    </message>
    <message>
        <source>Degrees</source>
        <translation>Grad</translation>
    </message>
    <message>
        <source>About (X Y Z)</source>
        <translation>Drehpunkt (X Y Z)</translation>
    </message>
    <message>
        <source>Co&amp;py...</source>
        <translation>K&amp;opieren...</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>Re&amp;name...</source>
        <translation>&amp;Umbenennen...</translation>
    </message>
    <message>
        <source>New name</source>
        <translation>Neuer Name</translation>
    </message>
    <message>
        <source>&amp;Unite</source>
        <translation>Vere&amp;inigen</translation>
    </message>
    <message>
        <source>Su&amp;btract...</source>
        <translation>&amp;Abziehen...</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeugkörper</translation>
    </message>
    <message>
        <source>From</source>
        <translation>Von</translation>
    </message>
    <message>
        <source>&amp;Intersect</source>
        <translation>Vers&amp;chneiden</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>Lösc&amp;hen</translation>
    </message>
    <message>
        <source>M&amp;esh...</source>
        <translation>Ver&amp;netzen...</translation>
    </message>
    <message>
        <source>Solids (all if empty)</source>
        <translation>Körper (leer: alle)</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>Elementgröße</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>Au&amp;flisten</translation>
    </message>
    <message>
        <source>Mesh St&amp;atistics</source>
        <translation>Netz&amp;statistik</translation>
    </message>
    <message>
        <source>Mesh &amp;Quality</source>
        <translation>Netzqua&amp;lität</translation>
    </message>
    <message>
        <source>&amp;Geometry</source>
        <translation>&amp;Geometrie</translation>
    </message>
    <message>
        <source>&amp;Geometry Commands</source>
        <translation>&amp;Geometriebefehle</translation>
    </message>
    <message>
        <source>Geometry Tools</source>
        <translation>Geometrie-Werkzeuge</translation>
    </message>
    <message>
        <source>Bric&amp;k...</source>
        <translation>&amp;Quader...</translation>
    </message>
</context>
<context>
    <name>GraphicsView</name>
    <message>
        <source>Graphics</source>
        <translation>Grafik</translation>
    </message>
</context>
<context>
    <name>GraphicsWindow</name>
    <message>
        <source>&amp;Front</source>
        <translation>&amp;Vorne</translation>
    </message>
    <message>
        <source>B&amp;ack</source>
        <translation>&amp;Hinten</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>&amp;Links</translation>
    </message>
    <message>
        <source>&amp;Right</source>
        <translation>&amp;Rechts</translation>
    </message>
    <message>
        <source>T&amp;op</source>
        <translation>&amp;Oben</translation>
    </message>
    <message>
        <source>&amp;Bottom</source>
        <translation>&amp;Unten</translation>
    </message>
    <message>
        <source>&amp;Isometric</source>
        <translation>&amp;Isometrisch</translation>
    </message>
    <message>
        <source>Fi&amp;t</source>
        <translation>&amp;Einpassen</translation>
    </message>
    <message>
        <source>&amp;Shaded</source>
        <translation>&amp;Schattiert</translation>
    </message>
    <message>
        <source>&amp;Wireframe</source>
        <translation>&amp;Drahtgitter</translation>
    </message>
    <message>
        <source>&amp;Mesh</source>
        <translation>&amp;Netz</translation>
    </message>
    <message>
        <source>Graphics Tools</source>
        <translation>Grafik-Werkzeuge</translation>
    </message>
</context>
<context>
    <name>InsertCommand</name>
    <message>
        <source>Insert command...</source>
        <translation>Befehl einfügen...</translation>
    </message>
</context>
<context>
    <name>InsertCommandDialog</name>
    <message>
        <source>Insert Command</source>
        <translation>Befehl einfügen</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>Filter</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>Befehle</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Beschreibung</translation>
    </message>
    <message>
        <source>&amp;Insert</source>
        <translation>&amp;Einfügen</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>Befehl</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Kurzbeschreibung</translation>
    </message>
</context>
<context>
    <name>JournalEditor</name>
    <message>
        <source>Journal Editor</source>
        <translation>Journal-Editor</translation>
    </message>
</context>
<context>
    <name>JournalPlayer</name>
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
</context>
<context>
    <name>KeptDocument</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>%1 (changed %2)</source>
        <translation>%1 (geändert %2)</translation>
    </message>
</context>
<context>
    <name>LevelView</name>
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
    <name>MeshElements</name>
    <message>
        <source>Point</source>
        <translation>Punkt</translation>
    </message>
    <message>
        <source>Line 2</source>
        <translation>Linie 2</translation>
    </message>
    <message>
        <source>Triangle 3</source>
        <translation>Dreieck 3</translation>
    </message>
    <message>
        <source>Quadrilateral 4</source>
        <translation>Viereck 4</translation>
    </message>
    <message>
        <source>Tetrahedron 4</source>
        <translation>Tetraeder 4</translation>
    </message>
    <message>
        <source>Hexahedron 8</source>
        <translation>Hexaeder 8</translation>
    </message>
    <message>
        <source>Prism 6</source>
        <translation>Prisma 6</translation>
    </message>
    <message>
        <source>Pyramid 5</source>
        <translation>Pyramide 5</translation>
    </message>
</context>
<context>
    <name>MesherReport</name>
    <message>
        <source>reading the file</source>
        <translation>Datei wird gelesen</translation>
    </message>
    <message>
        <source>reading the solids</source>
        <translation>Körper werden gelesen</translation>
    </message>
    <message>
        <source>meshing edges</source>
        <translation>Kanten werden vernetzt</translation>
    </message>
    <message>
        <source>meshing faces</source>
        <translation>Flächen werden vernetzt</translation>
    </message>
    <message>
        <source>meshing volumes</source>
        <translation>Volumen werden vernetzt</translation>
    </message>
    <message>
        <source>measuring</source>
        <translation>Messen</translation>
    </message>
    <message>
        <source>writing</source>
        <translation>Schreiben</translation>
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
        <source>Runs the commands of a journal file.</source>
        <translation>Führt die Befehle einer Journaldatei aus.</translation>
    </message>
    <message>
        <source>Python Statement</source>
        <translation>Python-Anweisung</translation>
    </message>
    <message>
        <source>Runs one Python statement.</source>
        <translation>Führt eine Python-Anweisung aus.</translation>
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
        <source>Lists all commands, or explains one of them.</source>
        <translation>Listet alle Befehle auf oder erklärt einen davon.</translation>
    </message>
    <message>
        <source>History</source>
        <translation>Verlauf</translation>
    </message>
    <message>
        <source>Lists the lines typed so far, or the last ones.</source>
        <translation>Listet die bisher eingegebenen Zeilen auf oder die letzten davon.</translation>
    </message>
    <message>
        <source>List Components</source>
        <translation>Komponenten auflisten</translation>
    </message>
    <message>
        <source>Lists the components.</source>
        <translation>Listet die Komponenten auf.</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>Bild</translation>
    </message>
    <message>
        <source>Writes a picture of the main window.</source>
        <translation>Schreibt ein Bild des Hauptfensters.</translation>
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
        <source>Gives a variable a value, tells its value, or lists all variables.</source>
        <translation>Gibt einer Variablen einen Wert, nennt ihren Wert oder listet alle Variablen auf.</translation>
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
        <source>Prints a text to the console.</source>
        <translation>Gibt einen Text auf der Konsole aus.</translation>
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
        <source>Loads a component, now and at each start.</source>
        <translation>Lädt eine Komponente, jetzt und bei jedem Start.</translation>
    </message>
    <message>
        <source>Unload Component</source>
        <translation>Komponente entladen</translation>
    </message>
    <message>
        <source>Unloads a component, now and at each start.</source>
        <translation>Entlädt eine Komponente, jetzt und bei jedem Start.</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>Beenden</translation>
    </message>
    <message>
        <source>Ends the application.</source>
        <translation>Beendet die Anwendung.</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>Auswählen</translation>
    </message>
    <message>
        <source>Selects what is named, and nothing else.</source>
        <translation>Wählt aus, was genannt ist, und nichts anderes.</translation>
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
</context>
<context>
    <name>PanelView</name>
    <message>
        <source>There are no commands.</source>
        <translation>Es gibt keine Befehle.</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>ERROR: Not all journals could be read. They stay in %1.
</source>
        <translation>ERROR: Nicht alle Journale konnten gelesen werden. Sie bleiben in %1.
</translation>
    </message>
</context>
<context>
    <name>RecoveryOffer</name>
    <message>
        <source>&amp;Restore All</source>
        <translation>Alle &amp;wiederherstellen</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>&amp;Verwerfen</translation>
    </message>
    <message>
        <source>&amp;Keep for Later</source>
        <translation>Für später &amp;behalten</translation>
    </message>
    <message>
        <source>Recover Journals</source>
        <translation>Journale wiederherstellen</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Unsaved journals were kept when the program ended unexpectedly:</source>
        <translation>Als das Programm unerwartet endete, wurden nicht gespeicherte Journale aufbewahrt:</translation>
    </message>
</context>
<context>
    <name>WindowKeys</name>
    <message>
        <source>&amp;Next Pane</source>
        <translation>Nä&amp;chster Bereich</translation>
    </message>
    <message>
        <source>&amp;Previous Pane</source>
        <translation>Vorheri&amp;ger Bereich</translation>
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
</context>
</TS>
