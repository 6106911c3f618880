<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CommandParameter</name>
    <message>
        <source>Whom to greet</source>
        <translation>问候对象</translation>
    </message>
</context>
<context>
    <name>Hello</name>
    <message>
        <source>Greet</source>
        <translation>问候</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>&amp;Hello</source>
        <translation>你好(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Greet the World</source>
        <translation>问候世界(&amp;G)</translation>
    </message>
    <message>
        <source>Hello</source>
        <translation>你好</translation>
    </message>
</context>
<context>
    <name>Workbench</name>
    <message>
        <source>Plugins</source>
        <translation>插件</translation>
    </message>
</context>
</TS>
