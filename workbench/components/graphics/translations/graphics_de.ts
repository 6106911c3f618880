<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Tells or sets what the graphics view shows.</source>
        <translation>Nennt oder bestimmt, was die Grafikansicht zeigt.</translation>
    </message>
    <message>
        <source>Shows all solids, from the same side.</source>
        <translation>Zeigt alle Körper von derselben Seite.</translation>
    </message>
    <message>
        <source>Looks at the solids from that side, and shows all of them.</source>
        <translation>Blickt von dieser Seite auf die Körper und zeigt sie alle.</translation>
    </message>
</context>
<context>
    <name>CommandParameter</name>
    <message>
        <source>Side</source>
        <translation>Seite</translation>
    </message>
    <message>
        <source>What</source>
        <translation>Was</translation>
    </message>
    <message>
        <source>State</source>
        <translation>Zustand</translation>
    </message>
</context>
<context>
    <name>Navigation</name>
    <message>
        <source>Look</source>
        <translation>Ansehen</translation>
    </message>
    <message>
        <source>Choose what the graphics view shows.</source>
        <translation>Wählen, was die Grafikansicht zeigt.</translation>
    </message>
    <message>
        <source>Look From</source>
        <translation>Blickrichtung</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>Einpassen</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>View</source>
        <translation>Ansicht</translation>
    </message>
    <message>
        <source>What the graphics view shows.</source>
        <translation>Was die Grafikansicht zeigt.</translation>
    </message>
</context>
<context>
    <name>fennar::graphics::GraphicsView</name>
    <message>
        <source>Graphics</source>
        <translation>Grafik</translation>
    </message>
</context>
<context>
    <name>fennar::graphics::GraphicsWindow</name>
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
</TS>
