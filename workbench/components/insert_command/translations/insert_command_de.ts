<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
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
</context>
<context>
    <name>fennar::insert_command::InsertCommandDialog</name>
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
</TS>
