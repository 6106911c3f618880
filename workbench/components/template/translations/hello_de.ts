<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>CommandParameter</name>
    <message>
        <source>Whom to greet</source>
        <translation>Wer gegrüßt wird</translation>
    </message>
</context>
<context>
    <name>Hello</name>
    <message>
        <source>Greet</source>
        <translation>Grüßen</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Name</translation>
    </message>
    <message>
        <source>&amp;Hello</source>
        <translation>Ha&amp;llo</translation>
    </message>
    <message>
        <source>&amp;Greet the World</source>
        <translation>Die &amp;Welt grüßen</translation>
    </message>
    <message>
        <source>Hello</source>
        <translation>Hallo</translation>
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
