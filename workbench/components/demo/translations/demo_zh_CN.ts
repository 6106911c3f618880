<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Counts.</source>
        <translation>计数。</translation>
    </message>
</context>
<context>
    <name>CommandParameter</name>
    <message>
        <source>Number</source>
        <translation>数量</translation>
    </message>
</context>
<context>
    <name>DemoWindow</name>
    <message>
        <source>Demo</source>
        <translation>演示</translation>
    </message>
    <message>
        <source>&amp;Count</source>
        <translation>计数(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Reset</source>
        <translation>重置(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;More</source>
        <translation>增加(&amp;M)</translation>
    </message>
    <message>
        <source>&amp;Less</source>
        <translation>减少(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Demo</source>
        <translation>演示(&amp;D)</translation>
    </message>
    <message>
        <source>Demo Tools</source>
        <translation>演示工具</translation>
    </message>
    <message>
        <source>D&amp;emo Dialog...</source>
        <translation>演示对话框(&amp;E)...</translation>
    </message>
    <message>
        <source>Demo &amp;Help</source>
        <translation>演示帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Demo component</source>
        <translation>演示组件</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>Count to, unless told</source>
        <translation>默认计数上限</translation>
    </message>
    <message>
        <source>This dialog goes with its component.</source>
        <translation>此对话框随其组件一起关闭。</translation>
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
