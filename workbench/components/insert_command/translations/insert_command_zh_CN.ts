<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>InsertCommand</name>
    <message>
        <source>Insert command...</source>
        <translation>插入命令...</translation>
    </message>
</context>
<context>
    <name>InsertCommandDialog</name>
    <message>
        <source>Insert Command</source>
        <translation>插入命令</translation>
    </message>
    <message>
        <source>Filter</source>
        <translation>筛选</translation>
    </message>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>说明</translation>
    </message>
</context>
<context>
    <name>fennar::insert_command::InsertCommandDialog</name>
    <message>
        <source>&amp;Insert</source>
        <translation>插入(&amp;I)</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>摘要</translation>
    </message>
</context>
</TS>
