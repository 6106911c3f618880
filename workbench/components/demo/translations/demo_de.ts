<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Counts.</source>
        <translation>Zählt.</translation>
    </message>
</context>
<context>
    <name>CommandParameter</name>
    <message>
        <source>Number</source>
        <translation>Anzahl</translation>
    </message>
</context>
<context>
    <name>DemoWindow</name>
    <message>
        <source>Demo</source>
        <translation>Demo</translation>
    </message>
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
        <source>&amp;Demo</source>
        <translation>De&amp;mo</translation>
    </message>
    <message>
        <source>Demo Tools</source>
        <translation>Demo-Werkzeuge</translation>
    </message>
    <message>
        <source>D&amp;emo Dialog...</source>
        <translation>De&amp;mo-Dialog...</translation>
    </message>
    <message>
        <source>Demo &amp;Help</source>
        <translation>Demo-&amp;Hilfe</translation>
    </message>
    <message>
        <source>Demo component</source>
        <translation>Demo-Komponente</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>Anzahl</translation>
    </message>
    <message>
        <source>Count to, unless told</source>
        <translation>Zählen bis, wenn nicht angegeben</translation>
    </message>
    <message>
        <source>This dialog goes with its component.</source>
        <translation>Dieser Dialog verschwindet mit seiner Komponente.</translation>
    </message>
</context>
<context>
    <name>Workbench</name>
    <message>
        <source>Plugins</source>
        <translation>Plugins</translation>
    </message>
</context>
</TS>
