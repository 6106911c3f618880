<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Offers the unsaved work that was kept for later.</source>
        <translation>Bietet nicht Gespeichertes an, das für später aufbewahrt wurde.</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>Not all that was kept could be read. It stays in %1.</source>
        <translation>Nicht alles Aufbewahrte konnte gelesen werden. Es bleibt in %1.</translation>
    </message>
    <message>
        <source>%1 stays kept. The command &quot;recover&quot; offers it again.</source>
        <translation>%1 bleibt aufbewahrt. Der Befehl „recover“ bietet es wieder an.</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::DocumentKeeper</name>
    <message>
        <source>Unsaved journals cannot be kept for a recovery: %1. It will be tried again.</source>
        <translation>Nicht gespeicherte Journale können nicht für eine Wiederherstellung aufbewahrt werden: %1. Es wird erneut versucht.</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::Keeper</name>
    <message>
        <source>no folder can be made in &quot;%1&quot;</source>
        <translation>in „%1“ kann kein Ordner angelegt werden</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::KeptDocument</name>
    <message>
        <source>Untitled</source>
        <translation>Unbenannt</translation>
    </message>
    <message>
        <source>Untitled model</source>
        <translation>Unbenanntes Modell</translation>
    </message>
    <message>
        <source>%1 (changed %2)</source>
        <translation>%1 (geändert %2)</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::RecoveryOffer</name>
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
        <source>Recover Unsaved Work</source>
        <translation>Nicht Gespeichertes wiederherstellen</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>und %1 weitere</translation>
    </message>
    <message>
        <source>Unsaved work was kept when the program ended unexpectedly:</source>
        <translation>Als das Programm unerwartet endete, wurde nicht Gespeichertes aufbewahrt:</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::WorkKeeper</name>
    <message>
        <source>Unsaved work cannot be kept for a recovery: %1. It will be tried again.</source>
        <translation>Nicht Gespeichertes kann nicht für eine Wiederherstellung aufbewahrt werden: %1. Es wird erneut versucht.</translation>
    </message>
</context>
</TS>
