<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Offers the unsaved work that was kept for later.</source>
        <translation>提供先前保留下来的未保存工作。</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>Not all that was kept could be read. It stays in %1.</source>
        <translation>部分保留的内容无法读取，它们保留在 %1 中。</translation>
    </message>
    <message>
        <source>%1 stays kept. The command &quot;recover&quot; offers it again.</source>
        <translation>%1 仍被保留。命令“recover”会再次提供。</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::DocumentKeeper</name>
    <message>
        <source>Unsaved journals cannot be kept for a recovery: %1. It will be tried again.</source>
        <translation>无法保留未保存的日志脚本以供恢复：%1。稍后将重试。</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::Keeper</name>
    <message>
        <source>no folder can be made in &quot;%1&quot;</source>
        <translation>无法在“%1”中创建文件夹</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::KeptDocument</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>Untitled model</source>
        <translation>未命名模型</translation>
    </message>
    <message>
        <source>%1 (changed %2)</source>
        <translation>%1（修改于 %2）</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::RecoveryOffer</name>
    <message>
        <source>&amp;Restore All</source>
        <translation>全部恢复(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Discard</source>
        <translation>放弃(&amp;D)</translation>
    </message>
    <message>
        <source>&amp;Keep for Later</source>
        <translation>留待以后(&amp;K)</translation>
    </message>
    <message>
        <source>Recover Unsaved Work</source>
        <translation>恢复未保存的工作</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>以及另外 %1 个</translation>
    </message>
    <message>
        <source>Unsaved work was kept when the program ended unexpectedly:</source>
        <translation>程序意外结束时保留了未保存的工作：</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::WorkKeeper</name>
    <message>
        <source>Unsaved work cannot be kept for a recovery: %1. It will be tried again.</source>
        <translation>无法保留未保存的工作以供恢复：%1。稍后将重试。</translation>
    </message>
</context>
</TS>
