<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CommandWidget</name>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
</context>
<context>
    <name>CommandWindow</name>
    <message>
        <source>Command Line Workspace</source>
        <translation>命令行工作区</translation>
    </message>
    <message>
        <source>Command Mode</source>
        <translation>命令模式</translation>
    </message>
    <message>
        <source>Python Mode</source>
        <translation>Python 模式</translation>
    </message>
</context>
<context>
    <name>ComponentTool</name>
    <message>
        <source>Select Folder</source>
        <translation>选择文件夹</translation>
    </message>
</context>
<context>
    <name>FileLineEdit</name>
    <message>
        <source>Form</source>
        <translation>窗体</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
</context>
<context>
    <name>HelpAboutOstrel</name>
    <message>
        <source>%1 includes:
</source>
        <translation>%1 包含：
</translation>
    </message>
    <message>
        <source>Qt %1</source>
        <translation>Qt %1</translation>
    </message>
    <message>
        <source> by The Qt Company
</source>
        <translation> （由 The Qt Company 提供）
</translation>
    </message>
    <message>
        <source>Python %1.%2.%3 (www.python.org)</source>
        <translation>Python %1.%2.%3 (www.python.org)</translation>
    </message>
</context>
<context>
    <name>JournalDocument</name>
    <message>
        <source>Play Selected</source>
        <translation>播放所选内容</translation>
    </message>
    <message>
        <source>Translate Selected to Python</source>
        <translation>将所选内容转换为 Python</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Cu&amp;t</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Copy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Comment Selection</source>
        <translation>注释所选内容</translation>
    </message>
    <message>
        <source>Un-Comment Selection</source>
        <translation>取消注释所选内容</translation>
    </message>
    <message>
        <source>Find...</source>
        <translation>查找...</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>清空</translation>
    </message>
    <message>
        <source>Select All</source>
        <translation>全选</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>日志脚本</translation>
    </message>
</context>
<context>
    <name>JournalEditor</name>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Journal Files (*.jou *.py);;All Files (*.*)</source>
        <translation>日志脚本文件 (*.jou *.py);;所有文件 (*.*)</translation>
    </message>
    <message>
        <source>Journal Editor</source>
        <translation>日志脚本编辑器</translation>
    </message>
    <message>
        <source>File Error</source>
        <translation>文件错误</translation>
    </message>
    <message>
        <source>Unable to open the file.</source>
        <translation>无法打开该文件。</translation>
    </message>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>The document has been modified.
Do you wish to save the changes?</source>
        <translation>文档已被修改。
是否保存更改？</translation>
    </message>
    <message>
        <source>Never prompt me when there is unsaved data.</source>
        <translation>有未保存的数据时不再提示。</translation>
    </message>
    <message>
        <source>Unable to save the file.</source>
        <translation>无法保存该文件。</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Journal files (*.jou *.py);;All Files (*.*)</source>
        <translation>日志脚本文件 (*.jou *.py);;所有文件 (*.*)</translation>
    </message>
    <message>
        <source> already exists.
Do you want to replace it?</source>
        <translation> 已存在。
是否替换？</translation>
    </message>
</context>
<context>
    <name>JournalFindDialog</name>
    <message>
        <source>Find in Journal File</source>
        <translation>在日志脚本文件中查找</translation>
    </message>
    <message>
        <source>Find What:</source>
        <translation>查找内容：</translation>
    </message>
    <message>
        <source>Case Sensitive</source>
        <translation>区分大小写</translation>
    </message>
    <message>
        <source>Search for Whole Words</source>
        <translation>全字匹配</translation>
    </message>
    <message>
        <source>Search Up</source>
        <translation>向上查找</translation>
    </message>
    <message>
        <source>Wrap Search</source>
        <translation>循环查找</translation>
    </message>
    <message>
        <source>C&amp;lose</source>
        <translation>关闭(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Next</source>
        <translation>下一个(&amp;N)</translation>
    </message>
    <message>
        <source>Find What</source>
        <translation>查找内容</translation>
    </message>
</context>
<context>
    <name>MessageSettingBox</name>
    <message>
        <source>&amp;OK</source>
        <translation>确定(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>是(&amp;Y)</translation>
    </message>
    <message>
        <source>&amp;Yes to All</source>
        <translation>全部是(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>否(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;No to All</source>
        <translation>全部否(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Abort</source>
        <translation>中止(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Retry</source>
        <translation>重试(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Ignore</source>
        <translation>忽略(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
</context>
<context>
    <name>Ostrel</name>
    <message>
        <source>File Tools</source>
        <translation>文件工具</translation>
    </message>
    <message>
        <source>&amp;Command Line</source>
        <translation>命令行(&amp;C)</translation>
    </message>
    <message>
        <source>Show/hide command line workspace</source>
        <translation>显示/隐藏命令行工作区</translation>
    </message>
    <message>
        <source>Command Panel</source>
        <translation>命令面板</translation>
    </message>
    <message>
        <source>Show/hide command panel</source>
        <translation>显示/隐藏命令面板</translation>
    </message>
    <message>
        <source>Line up</source>
        <translation>对齐排列</translation>
    </message>
    <message>
        <source>Command Line</source>
        <translation>命令行</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Window</source>
        <translation>窗口(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
</context>
<context>
    <name>OstrelFileMenu</name>
    <message>
        <source>ERROR: Missing open/save handler.
</source>
        <translation>ERROR: 缺少打开/保存处理程序。
</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>新建(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>&amp;Import...</source>
        <translation>导入(&amp;I)...</translation>
    </message>
    <message>
        <source>&amp;Export...</source>
        <translation>导出(&amp;E)...</translation>
    </message>
    <message>
        <source>Set &amp;Directory</source>
        <translation>设置目录(&amp;D)</translation>
    </message>
    <message>
        <source>Sets the current working directory</source>
        <translation>设置当前工作目录</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Recent Imports</source>
        <translation>最近的导入(&amp;R)</translation>
    </message>
    <message>
        <source>Working Directory: </source>
        <translation>工作目录： </translation>
    </message>
    <message>
        <source>The data has been modified.
Do you wish to save the changes?</source>
        <translation>数据已被修改。
是否保存更改？</translation>
    </message>
    <message>
        <source>Never prompt me when there is unsaved data.</source>
        <translation>有未保存的数据时不再提示。</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>selected filter: </source>
        <translation>所选过滤器： </translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>Import File</source>
        <translation>导入文件</translation>
    </message>
    <message>
        <source>Genesis/Exodus (*.g *.gen *.e* *.exo)</source>
        <translation>Genesis/Exodus (*.g *.gen *.e* *.exo)</translation>
    </message>
    <message>
        <source>Export File</source>
        <translation>导出文件</translation>
    </message>
</context>
<context>
    <name>OstrelGUIOptions</name>
    <message>
        <source>Layout</source>
        <translation>布局</translation>
    </message>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
</context>
<context>
    <name>OstrelHelpMenu</name>
    <message>
        <source>&amp;Help</source>
        <translation>帮助(&amp;H)</translation>
    </message>
    <message>
        <source>&amp;About</source>
        <translation>关于(&amp;A)</translation>
    </message>
</context>
<context>
    <name>OstrelToolsMenu</name>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Journal Editor</source>
        <translation>日志脚本编辑器(&amp;J)</translation>
    </message>
    <message>
        <source>Journal Editor</source>
        <translation>日志脚本编辑器</translation>
    </message>
    <message>
        <source>&amp;Play Journal File</source>
        <translation>播放日志脚本文件(&amp;P)</translation>
    </message>
    <message>
        <source>Play Journal File</source>
        <translation>播放日志脚本文件</translation>
    </message>
    <message>
        <source>Play ID-less Fennar Journal File</source>
        <translation>播放无 ID 的 Fennar 日志脚本文件</translation>
    </message>
    <message>
        <source>Pause Script</source>
        <translation>暂停脚本</translation>
    </message>
    <message>
        <source>Pause Script Playback (Ctrl+I)</source>
        <translation>暂停脚本播放 (Ctrl+I)</translation>
    </message>
    <message>
        <source>Plu&amp;gins...</source>
        <translation>插件(&amp;G)...</translation>
    </message>
    <message>
        <source>Plugin Tool</source>
        <translation>插件工具</translation>
    </message>
    <message>
        <source>&amp;Options...</source>
        <translation>选项(&amp;O)...</translation>
    </message>
    <message>
        <source>Set program options</source>
        <translation>设置程序选项</translation>
    </message>
</context>
<context>
    <name>OstrelViewMenu</name>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Toolbars</source>
        <translation>工具栏</translation>
    </message>
</context>
<context>
    <name>QtComponentTool</name>
    <message>
        <source>Plugin Directories</source>
        <translation>插件目录</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>插件</translation>
    </message>
    <message>
        <source>Loading Locations</source>
        <translation>加载位置</translation>
    </message>
    <message>
        <source>The list of plugins registered with the framework. If the ckeck box in the left column of a plugin is checked, the plugin will be loaded on startup. If the box is not checked, the plugin will be in the list, but it will not be loaded when the framework starts up.</source>
        <translation>在框架中注册的插件列表。如果勾选了插件左列的复选框，该插件将在启动时加载。如果未勾选，插件仍在列表中，但框架启动时不会加载。</translation>
    </message>
    <message>
        <source>Adds a plugin to the framework. You must click save in order to have Ostrel load the plugin the next time it starts up.</source>
        <translation>向框架添加插件。必须单击“保存”，Ostrel 才会在下次启动时加载该插件。</translation>
    </message>
    <message>
        <source>&amp;Add</source>
        <translation>添加(&amp;A)</translation>
    </message>
    <message>
        <source>Alt+A</source>
        <translation>Alt+A</translation>
    </message>
    <message>
        <source>Removes a plugin from the framework. The plugin must be unloaded before it can be removed. You must click save to prevent Ostrel from loading the plugin the next time it starts up.</source>
        <translation>从框架中移除插件。移除前必须先卸载该插件。必须单击“保存”，Ostrel 下次启动时才不会再加载该插件。</translation>
    </message>
    <message>
        <source>&amp;Remove</source>
        <translation>移除(&amp;R)</translation>
    </message>
    <message>
        <source>Alt+R</source>
        <translation>Alt+R</translation>
    </message>
    <message>
        <source>Moves a plugin up in the list. The changes will only take effect after saving and restarting Ostrel.</source>
        <translation>在列表中上移插件。更改在保存并重新启动 Ostrel 后才会生效。</translation>
    </message>
    <message>
        <source>Moves a plugin down in the list. The changes will only take effect after saving and restarting Ostrel.</source>
        <translation>在列表中下移插件。更改在保存并重新启动 Ostrel 后才会生效。</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Move Up</source>
        <translation>上移</translation>
    </message>
    <message>
        <source>Move Down</source>
        <translation>下移</translation>
    </message>
</context>
<context>
    <name>QtGeneralOptions</name>
    <message>
        <source>General</source>
        <translation>常规</translation>
    </message>
    <message>
        <source>Unsaved Data</source>
        <translation>未保存的数据</translation>
    </message>
    <message>
        <source>When this option is turned on, Ostrel will prompt you to save when the data has been modified.</source>
        <translation>启用此选项后，数据被修改时 Ostrel 会提示保存。</translation>
    </message>
    <message>
        <source>Prompt for Unsaved Application Data</source>
        <translation>应用程序数据未保存时提示</translation>
    </message>
    <message>
        <source>When this option is turned on, the journal editor will prompt you to save when the document has been modified.</source>
        <translation>启用此选项后，文档被修改时日志脚本编辑器会提示保存。</translation>
    </message>
    <message>
        <source>Prompt for Unsaved Journal Data</source>
        <translation>日志脚本数据未保存时提示</translation>
    </message>
    <message>
        <source>Script Playback</source>
        <translation>脚本播放</translation>
    </message>
    <message>
        <source>Select this option to allow the framework to change the working directory when playing a script or history file. The directory will be changed to where the script is located, which allows the script to use relative paths when referring to other files. The working directory will be changed back when the script finishes.</source>
        <translation>选择此选项后，框架在播放脚本或历史文件时可以更改工作目录。工作目录将更改为脚本所在的目录，这样脚本就可以使用相对路径引用其他文件。脚本结束后将恢复原来的工作目录。</translation>
    </message>
    <message>
        <source>Change to Script Directory</source>
        <translation>切换到脚本目录</translation>
    </message>
    <message>
        <source>Focus Follows Cursor in Command Window</source>
        <translation>命令窗口中焦点跟随光标</translation>
    </message>
    <message>
        <source>This option allows you to enable or disable the startup splash screen(s).</source>
        <translation>此选项用于启用或禁用启动画面。</translation>
    </message>
    <message>
        <source>Enable Focus Follows Cursor</source>
        <translation>启用焦点跟随光标</translation>
    </message>
    <message>
        <source>Startup</source>
        <translation>启动</translation>
    </message>
    <message>
        <source>Show Startup Splash Screen</source>
        <translation>显示启动画面</translation>
    </message>
    <message>
        <source>When enabled, restores the working directory on application startup.</source>
        <translation>启用后，应用程序启动时恢复工作目录。</translation>
    </message>
    <message>
        <source>Restore Working Directory</source>
        <translation>恢复工作目录</translation>
    </message>
    <message>
        <source>Python</source>
        <translation>Python</translation>
    </message>
    <message>
        <source>Python Version 3</source>
        <translation>Python 版本 3</translation>
    </message>
    <message>
        <source>Use Paths</source>
        <translation>使用路径</translation>
    </message>
    <message>
        <source>Paths</source>
        <translation>路径</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Browse</source>
        <translation>浏览</translation>
    </message>
</context>
<context>
    <name>QtHelpAboutOstrel</name>
    <message>
        <source>About</source>
        <translation>关于</translation>
    </message>
    <message>
        <source>Icon</source>
        <translation>图标</translation>
    </message>
    <message>
        <source>Product Name</source>
        <translation>产品名称</translation>
    </message>
    <message>
        <source>Product Info</source>
        <translation>产品信息</translation>
    </message>
    <message>
        <source>Ostrel 3rd Party</source>
        <translation>Ostrel 第三方组件</translation>
    </message>
    <message>
        <source>&amp;OK</source>
        <translation>确定(&amp;O)</translation>
    </message>
</context>
<context>
    <name>QtJournalEditor</name>
    <message>
        <source>Journal Editor</source>
        <translation>日志脚本编辑器</translation>
    </message>
    <message>
        <source>Tab 1</source>
        <translation>标签页 1</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Import</source>
        <translation>导入(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
    <message>
        <source>&amp;Tools</source>
        <translation>工具(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;New</source>
        <translation>新建(&amp;N)</translation>
    </message>
    <message>
        <source>New</source>
        <translation>新建</translation>
    </message>
    <message>
        <source>Ctrl+N</source>
        <translation>Ctrl+N</translation>
    </message>
    <message>
        <source>&amp;Open...</source>
        <translation>打开(&amp;O)...</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>打开</translation>
    </message>
    <message>
        <source>Ctrl+O</source>
        <translation>Ctrl+O</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>保存</translation>
    </message>
    <message>
        <source>Ctrl+S</source>
        <translation>Ctrl+S</translation>
    </message>
    <message>
        <source>Save &amp;As...</source>
        <translation>另存为(&amp;A)...</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>另存为</translation>
    </message>
    <message>
        <source>&amp;Print...</source>
        <translation>打印(&amp;P)...</translation>
    </message>
    <message>
        <source>Print</source>
        <translation>打印</translation>
    </message>
    <message>
        <source>Ctrl+P</source>
        <translation>Ctrl+P</translation>
    </message>
    <message>
        <source>E&amp;xit</source>
        <translation>退出(&amp;X)</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>&amp;Cut</source>
        <translation>剪切(&amp;T)</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Ctrl+X</source>
        <translation>Ctrl+X</translation>
    </message>
    <message>
        <source>C&amp;opy</source>
        <translation>复制(&amp;C)</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>复制</translation>
    </message>
    <message>
        <source>Ctrl+C</source>
        <translation>Ctrl+C</translation>
    </message>
    <message>
        <source>&amp;Paste</source>
        <translation>粘贴(&amp;P)</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Ctrl+V</source>
        <translation>Ctrl+V</translation>
    </message>
    <message>
        <source>&amp;Find...</source>
        <translation>查找(&amp;F)...</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>查找</translation>
    </message>
    <message>
        <source>Ctrl+F</source>
        <translation>Ctrl+F</translation>
    </message>
    <message>
        <source>&amp;Play</source>
        <translation>播放(&amp;P)</translation>
    </message>
    <message>
        <source>Play</source>
        <translation>播放</translation>
    </message>
    <message>
        <source>Plays the current file</source>
        <translation>播放当前文件</translation>
    </message>
    <message>
        <source>F5</source>
        <translation>F5</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Ctrl+Z</source>
        <translation>Ctrl+Z</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Ctrl+Y</source>
        <translation>Ctrl+Y</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Sa&amp;ve All</source>
        <translation>全部保存(&amp;V)</translation>
    </message>
    <message>
        <source>Save All</source>
        <translation>全部保存</translation>
    </message>
    <message>
        <source>Ctrl+Shift+S</source>
        <translation>Ctrl+Shift+S</translation>
    </message>
    <message>
        <source>&amp;Fennar</source>
        <translation>Fennar(&amp;F)</translation>
    </message>
    <message>
        <source>Fennar</source>
        <translation>Fennar</translation>
    </message>
    <message>
        <source>Translate to Fennar Commands</source>
        <translation>转换为 Fennar 命令</translation>
    </message>
    <message>
        <source>Translate to Python</source>
        <translation>转换为 Python</translation>
    </message>
</context>
<context>
    <name>QtLayoutOptions</name>
    <message>
        <source>Layout</source>
        <translation>布局</translation>
    </message>
    <message>
        <source>Command Line and Journal Font</source>
        <translation>命令行和日志脚本字体</translation>
    </message>
    <message>
        <source>Font Family</source>
        <translation>字体</translation>
    </message>
    <message>
        <source>Font Size</source>
        <translation>字号</translation>
    </message>
    <message>
        <source>This displays some sample text in the selected font and size.</source>
        <translation>以所选字体和字号显示示例文本。</translation>
    </message>
    <message>
        <source>Sample Text</source>
        <translation>示例文本</translation>
    </message>
    <message>
        <source>Toolbars and Docking Windows</source>
        <translation>工具栏和停靠窗口</translation>
    </message>
    <message>
        <source>Checking the box next to the toolbar or docking window will display it. Unchecking the box will hide that toolbar or docking window.</source>
        <translation>勾选工具栏或停靠窗口旁的复选框即可显示它，取消勾选则将其隐藏。</translation>
    </message>
    <message>
        <source>Look and Feel</source>
        <translation>外观</translation>
    </message>
    <message>
        <source>Use Labels on Buttons</source>
        <translation>在按钮上显示文字</translation>
    </message>
    <message>
        <source>Handles the positioning of tabs that appear
when docking windows are stacked.</source>
        <translation>设置停靠窗口层叠时
标签的位置。</translation>
    </message>
    <message>
        <source>Window Tab Position</source>
        <translation>窗口标签位置</translation>
    </message>
    <message>
        <source>Bottom</source>
        <translation>底部</translation>
    </message>
    <message>
        <source>Top</source>
        <translation>顶部</translation>
    </message>
    <message>
        <source>Left</source>
        <translation>左侧</translation>
    </message>
    <message>
        <source>Right</source>
        <translation>右侧</translation>
    </message>
</context>
<context>
    <name>QtMessageSettingBox</name>
    <message>
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message>
        <source>Warning Message</source>
        <translation>警告信息</translation>
    </message>
    <message>
        <source>Don&apos;t ask me this again.</source>
        <translation>不再询问。</translation>
    </message>
    <message>
        <source>&amp;Yes</source>
        <translation>是(&amp;Y)</translation>
    </message>
    <message>
        <source>Alt+Y</source>
        <translation>Alt+Y</translation>
    </message>
    <message>
        <source>&amp;No</source>
        <translation>否(&amp;N)</translation>
    </message>
    <message>
        <source>Alt+N</source>
        <translation>Alt+N</translation>
    </message>
    <message>
        <source>&amp;Cancel</source>
        <translation>取消(&amp;C)</translation>
    </message>
    <message>
        <source>Alt+C</source>
        <translation>Alt+C</translation>
    </message>
</context>
<context>
    <name>QtOptionsPanel</name>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Alt+S</source>
        <translation>Alt+S</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>Alt+C</source>
        <translation>Alt+C</translation>
    </message>
</context>
<context>
    <name>QtProgressControl</name>
    <message>
        <source>Progress</source>
        <translation>进度</translation>
    </message>
    <message>
        <source>Cancel the currently running process</source>
        <translation>取消当前正在运行的过程</translation>
    </message>
</context>
<context>
    <name>RecentFiles</name>
    <message>
        <source>File Error</source>
        <translation>文件错误</translation>
    </message>
    <message>
        <source>The selected file does not exist.</source>
        <translation>所选文件不存在。</translation>
    </message>
    <message>
        <source>Recent</source>
        <translation>最近的文件</translation>
    </message>
</context>
</TS>
