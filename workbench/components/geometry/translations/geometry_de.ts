<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Makes a brick, or a cube.</source>
        <translation>Erstellt einen Quader oder Würfel.</translation>
    </message>
    <message>
        <source>Makes a cone, or a part of one.</source>
        <translation>Erstellt einen Kegel oder Kegelstumpf.</translation>
    </message>
    <message>
        <source>Copies a solid.</source>
        <translation>Kopiert einen Körper.</translation>
    </message>
    <message>
        <source>Makes a cylinder.</source>
        <translation>Erstellt einen Zylinder.</translation>
    </message>
    <message>
        <source>Deletes solids.</source>
        <translation>Löscht Körper.</translation>
    </message>
    <message>
        <source>Writes solids or the mesh to a file.</source>
        <translation>Schreibt Körper oder das Netz in eine Datei.</translation>
    </message>
    <message>
        <source>Reads solids or a mesh from a file.</source>
        <translation>Liest Körper oder ein Netz aus einer Datei.</translation>
    </message>
    <message>
        <source>Keeps what several solids have in common.</source>
        <translation>Behält, was mehreren Körpern gemeinsam ist.</translation>
    </message>
    <message>
        <source>Lists solids with their measures.</source>
        <translation>Listet Körper mit ihren Maßen auf.</translation>
    </message>
    <message>
        <source>Fills solids with tetrahedra.</source>
        <translation>Füllt Körper mit Tetraedern.</translation>
    </message>
    <message>
        <source>Moves solids.</source>
        <translation>Verschiebt Körper.</translation>
    </message>
    <message>
        <source>Starts an empty model.</source>
        <translation>Beginnt ein leeres Modell.</translation>
    </message>
    <message>
        <source>Opens a model that was saved.</source>
        <translation>Öffnet ein gespeichertes Modell.</translation>
    </message>
    <message>
        <source>Measures the volume elements of the mesh.</source>
        <translation>Misst die Volumenelemente des Netzes.</translation>
    </message>
    <message>
        <source>Gives a solid another name.</source>
        <translation>Gibt einem Körper einen anderen Namen.</translation>
    </message>
    <message>
        <source>Turns solids.</source>
        <translation>Dreht Körper.</translation>
    </message>
    <message>
        <source>Saves the model.</source>
        <translation>Speichert das Modell.</translation>
    </message>
    <message>
        <source>Makes a sphere.</source>
        <translation>Erstellt eine Kugel.</translation>
    </message>
    <message>
        <source>Counts the nodes and elements of the mesh.</source>
        <translation>Zählt die Knoten und Elemente des Netzes.</translation>
    </message>
    <message>
        <source>Takes the tools away from a solid.</source>
        <translation>Zieht die Werkzeugkörper von einem Körper ab.</translation>
    </message>
    <message>
        <source>Makes a torus.</source>
        <translation>Erstellt einen Torus.</translation>
    </message>
    <message>
        <source>Makes one solid of several.</source>
        <translation>Macht aus mehreren Körpern einen.</translation>
    </message>
</context>
<context>
    <name>CommandError</name>
    <message>
        <source>the ending of the file tells no format; say which one with &quot;as&quot; (%1)</source>
        <translation>die Endung der Datei nennt kein Format; &quot;as&quot; gibt eines an (%1)</translation>
    </message>
    <message>
        <source>files of the format %1 cannot be read</source>
        <translation>Dateien im Format %1 können nicht gelesen werden</translation>
    </message>
    <message>
        <source>files of the format %1 cannot be written</source>
        <translation>Dateien im Format %1 können nicht geschrieben werden</translation>
    </message>
    <message>
        <source>the end of the line (%1 files hold the last mesh)</source>
        <translation>das Ende der Zeile (Dateien im Format %1 enthalten das letzte Netz)</translation>
    </message>
    <message>
        <source>the end of the line (%1 files hold solids)</source>
        <translation>das Ende der Zeile (Dateien im Format %1 enthalten Körper)</translation>
    </message>
    <message>
        <source>a radius of the tube (less than %1)</source>
        <translation>ein Radius des Rohrs (kleiner als %1)</translation>
    </message>
</context>
<context>
    <name>CommandParameter</name>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>Model Files</source>
        <translation>Modelldateien</translation>
    </message>
    <message>
        <source>Drop unsaved changes</source>
        <translation>Änderungen verwerfen</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>Needed only where the ending of the file does not tell it.</source>
        <translation>Nur nötig, wenn die Dateiendung es nicht verrät.</translation>
    </message>
    <message>
        <source>Size of the triangles</source>
        <translation>Größe der Dreiecke</translation>
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
        <source>Radius of the top</source>
        <translation>Oberer Radius</translation>
    </message>
    <message>
        <source>Without it the cone ends in a point.</source>
        <translation>Ohne ihn endet der Kegel in einer Spitze.</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Werkzeuge</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>Radius</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>Höhe</translation>
    </message>
    <message>
        <source>Radius of the tube</source>
        <translation>Radius des Rohrs</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>Tiefe</translation>
    </message>
    <message>
        <source>Without depth and height it is a cube.</source>
        <translation>Ohne Tiefe und Höhe ist es ein Würfel.</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>Mittelpunkt</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>Verschiebung</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Winkel</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>Breite</translation>
    </message>
    <message>
        <source>Point on the axis</source>
        <translation>Punkt auf der Achse</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>Achse</translation>
    </message>
    <message>
        <source>The direction; its length does not matter.</source>
        <translation>Die Richtung; ihre Länge ist gleichgültig.</translation>
    </message>
    <message>
        <source>New name</source>
        <translation>Neuer Name</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>Without one the solid is named after its kind and number.</source>
        <translation>Ohne Namen heißt der Körper nach seiner Art und Nummer.</translation>
    </message>
    <message>
        <source>Size of the elements</source>
        <translation>Größe der Elemente</translation>
    </message>
    <message>
        <source>Algorithm</source>
        <translation>Algorithmus</translation>
    </message>
    <message>
        <source>Threads</source>
        <translation>Threads</translation>
    </message>
    <message>
        <source>Show all messages of the mesher</source>
        <translation>Alle Meldungen zeigen</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>Maß</translation>
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
        <source>measuring</source>
        <translation>Messen</translation>
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
        <source>writing</source>
        <translation>Schreiben</translation>
    </message>
</context>
<context>
    <name>Navigation</name>
    <message>
        <source>Make</source>
        <translation>Erstellen</translation>
    </message>
    <message>
        <source>Make solids.</source>
        <translation>Körper erstellen.</translation>
    </message>
    <message>
        <source>Brick</source>
        <translation>Quader</translation>
    </message>
    <message>
        <source>Cylinder</source>
        <translation>Zylinder</translation>
    </message>
    <message>
        <source>Sphere</source>
        <translation>Kugel</translation>
    </message>
    <message>
        <source>Cone</source>
        <translation>Kegel</translation>
    </message>
    <message>
        <source>Torus</source>
        <translation>Torus</translation>
    </message>
    <message>
        <source>Copy Solid</source>
        <translation>Körper kopieren</translation>
    </message>
    <message>
        <source>Modify</source>
        <translation>Verändern</translation>
    </message>
    <message>
        <source>Change solids and combine them.</source>
        <translation>Körper ändern und kombinieren.</translation>
    </message>
    <message>
        <source>Combine</source>
        <translation>Kombinieren</translation>
    </message>
    <message>
        <source>Make one solid of several.</source>
        <translation>Aus mehreren Körpern einen machen.</translation>
    </message>
    <message>
        <source>Unite</source>
        <translation>Vereinigen</translation>
    </message>
    <message>
        <source>Subtract</source>
        <translation>Abziehen</translation>
    </message>
    <message>
        <source>Intersect</source>
        <translation>Verschneiden</translation>
    </message>
    <message>
        <source>Move Solids</source>
        <translation>Körper verschieben</translation>
    </message>
    <message>
        <source>Rotate Solids</source>
        <translation>Körper drehen</translation>
    </message>
    <message>
        <source>Rename Solid</source>
        <translation>Körper umbenennen</translation>
    </message>
    <message>
        <source>Delete Solids</source>
        <translation>Körper löschen</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>Netz</translation>
    </message>
    <message>
        <source>Make a mesh and look at its numbers.</source>
        <translation>Ein Netz erstellen und seine Kennzahlen ansehen.</translation>
    </message>
    <message>
        <source>Mesh Solids</source>
        <translation>Körper vernetzen</translation>
    </message>
    <message>
        <source>Mesh Statistics</source>
        <translation>Netzstatistik</translation>
    </message>
    <message>
        <source>Mesh Quality</source>
        <translation>Netzqualität</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Open and save models, exchange them with other programs.</source>
        <translation>Modelle öffnen, speichern und mit anderen Programmen austauschen.</translation>
    </message>
    <message>
        <source>New Model</source>
        <translation>Neues Modell</translation>
    </message>
    <message>
        <source>Open Model</source>
        <translation>Modell öffnen</translation>
    </message>
    <message>
        <source>Save Model</source>
        <translation>Modell speichern</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>Importieren</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Exportieren</translation>
    </message>
    <message>
        <source>Solids</source>
        <translation>Körper</translation>
    </message>
    <message>
        <source>The solids of the model.</source>
        <translation>Die Körper des Modells.</translation>
    </message>
    <message>
        <source>New Solid</source>
        <translation>Neuer Körper</translation>
    </message>
    <message>
        <source>Simple solids to begin with.</source>
        <translation>Einfache Körper für den Anfang.</translation>
    </message>
    <message>
        <source>One solid of several.</source>
        <translation>Ein Körper aus mehreren.</translation>
    </message>
    <message>
        <source>List Solids</source>
        <translation>Körper auflisten</translation>
    </message>
    <message>
        <source>The mesh that was made last.</source>
        <translation>Das zuletzt erstellte Netz.</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>Modell</translation>
    </message>
    <message>
        <source>The model as a whole, and its files.</source>
        <translation>Das Modell als Ganzes und seine Dateien.</translation>
    </message>
</context>
<context>
    <name>fennar::geometry::GeometryDock</name>
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
    <name>fennar::geometry::GeometryFileHandler</name>
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
    <name>fennar::geometry::GeometryWindow</name>
    <message>
        <source>Geometry Tools</source>
        <translation>Geometrie-Werkzeuge</translation>
    </message>
    <message>
        <source>No solid is selected.</source>
        <translation>Es ist kein Körper ausgewählt.</translation>
    </message>
    <message>
        <source>Fewer than two solids are selected.</source>
        <translation>Es sind weniger als zwei Körper ausgewählt.</translation>
    </message>
    <message>
        <source>Bric&amp;k...</source>
        <translation>&amp;Quader...</translation>
    </message>
    <message>
        <source>&amp;Cylinder...</source>
        <translation>&amp;Zylinder...</translation>
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
        <source>&amp;Torus...</source>
        <translation>&amp;Torus...</translation>
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
        <source>&amp;Intersect</source>
        <translation>Vers&amp;chneiden</translation>
    </message>
    <message>
        <source>&amp;Move...</source>
        <translation>&amp;Verschieben...</translation>
    </message>
    <message>
        <source>&amp;Rotate...</source>
        <translation>&amp;Drehen...</translation>
    </message>
    <message>
        <source>Co&amp;py...</source>
        <translation>K&amp;opieren...</translation>
    </message>
    <message>
        <source>Re&amp;name...</source>
        <translation>&amp;Umbenennen...</translation>
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
</context>
<context>
    <name>fennar::geometry::SaveQuestion</name>
    <message>
        <source>Replace File</source>
        <translation>Datei ersetzen</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 ist bereits vorhanden.
Möchten Sie die Datei ersetzen?</translation>
    </message>
</context>
</TS>
