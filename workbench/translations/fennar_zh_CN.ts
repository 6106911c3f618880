<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Looks for errors in a journal without running it.</source>
        <translation>在不运行日志脚本的情况下查找其中的错误。</translation>
    </message>
    <message>
        <source>Lists the components.</source>
        <translation>列出组件。</translation>
    </message>
    <message>
        <source>Prints its words.</source>
        <translation>输出给出的词。</translation>
    </message>
    <message>
        <source>Opens a journal or a Python script in the journal editor.</source>
        <translation>在日志脚本编辑器中打开日志或 Python 脚本。</translation>
    </message>
    <message>
        <source>Shows a command in the command panel.</source>
        <translation>在命令面板中显示一个命令。</translation>
    </message>
    <message>
        <source>Lists all commands, or explains one.</source>
        <translation>列出所有命令，或说明其中一个。</translation>
    </message>
    <message>
        <source>Closes a window other than the main window.</source>
        <translation>关闭主窗口以外的窗口。</translation>
    </message>
    <message>
        <source>Loads a component, now and at each start.</source>
        <translation>立即加载组件，并在每次启动时加载。</translation>
    </message>
    <message>
        <source>Declares a variable that whoever plays the journal may set.</source>
        <translation>声明一个在播放日志时可以设置的变量。</translation>
    </message>
    <message>
        <source>Writes a picture of a window.</source>
        <translation>写出一个窗口的图像。</translation>
    </message>
    <message>
        <source>Plays a journal or a Python script.</source>
        <translation>播放日志或 Python 脚本。</translation>
    </message>
    <message>
        <source>Runs a Python statement.</source>
        <translation>执行一条 Python 语句。</translation>
    </message>
    <message>
        <source>Ends the application.</source>
        <translation>结束应用程序。</translation>
    </message>
    <message>
        <source>Makes again what was undone last.</source>
        <translation>重做最近撤销的内容。</translation>
    </message>
    <message>
        <source>Tells or sets the colors of the windows.</source>
        <translation>告知或设置窗口的颜色。</translation>
    </message>
    <message>
        <source>Selects what is named, and nothing else.</source>
        <translation>仅选择指定的对象。</translation>
    </message>
    <message>
        <source>Sets a variable, shows one, or lists all.</source>
        <translation>设置变量，显示一个变量，或列出所有变量。</translation>
    </message>
    <message>
        <source>Shows a window, or a page of the options.</source>
        <translation>显示一个窗口，或选项的一页。</translation>
    </message>
    <message>
        <source>Takes back the last command that has changed the model.</source>
        <translation>撤回最近一条更改模型的命令。</translation>
    </message>
    <message>
        <source>Unloads a component, now and at each start.</source>
        <translation>立即卸载组件，以后启动时也不加载。</translation>
    </message>
    <message>
        <source>Lists the lines typed so far, or the steps that can be undone and redone.</source>
        <translation>列出迄今输入过的行，或者可以撤销和重做的步骤。</translation>
    </message>
</context>
<context>
    <name>CommandError</name>
    <message>
        <source>the ending of the file tells no format of pictures, as .png or .jpg does</source>
        <translation>文件扩展名不是图片格式（如 .png 或 .jpg）</translation>
    </message>
    <message>
        <source>a variable that is set</source>
        <translation>已设置的变量</translation>
    </message>
    <message>
        <source>a parameter and its value as NAME=VALUE</source>
        <translation>形如“名称=值”的参数和值</translation>
    </message>
    <message>
        <source>only a journal that is played from line 1 takes values</source>
        <translation>只有从第 1 行开始播放的日志才接受参数值</translation>
    </message>
    <message>
        <source>a Python script cannot be checked</source>
        <translation>Python 脚本无法检查</translation>
    </message>
    <message>
        <source>the end of the line</source>
        <translation>行尾</translation>
    </message>
    <message>
        <source>%1 or %2</source>
        <translation>%1 或 %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was named already</source>
        <translation>“%1”已经列出</translation>
    </message>
    <message>
        <source>a whole number from %1 to %2</source>
        <translation>%1 到 %2 之间的整数</translation>
    </message>
    <message>
        <source>a number from %1 to %2</source>
        <translation>%1 到 %2 之间的数</translation>
    </message>
    <message>
        <source>a whole number from %1 on</source>
        <translation>不小于 %1 的整数</translation>
    </message>
    <message>
        <source>a number from %1 on</source>
        <translation>不小于 %1 的数</translation>
    </message>
    <message>
        <source>a whole number up to %1</source>
        <translation>不大于 %1 的整数</translation>
    </message>
    <message>
        <source>a number up to %1</source>
        <translation>不大于 %1 的数</translation>
    </message>
    <message>
        <source>a whole number</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>a number</source>
        <translation>数</translation>
    </message>
    <message>
        <source>expected %1, found %2</source>
        <translation>应为%1，实际为%2</translation>
    </message>
    <message>
        <source>there is nothing to choose from</source>
        <translation>没有可选项</translation>
    </message>
    <message>
        <source>the maximum is less than the minimum</source>
        <translation>最大值小于最小值</translation>
    </message>
</context>
<context>
    <name>CommandParameter</name>
    <message>
        <source>Components</source>
        <translation>组件</translation>
    </message>
    <message>
        <source>Component</source>
        <translation>组件</translation>
    </message>
    <message>
        <source>By name</source>
        <translation>按名称</translation>
    </message>
    <message>
        <source>From a file</source>
        <translation>来自文件</translation>
    </message>
    <message>
        <source>Quotes keep blanks; $NAME is a variable.</source>
        <translation>引号可保留空格；$NAME 为变量。</translation>
    </message>
    <message>
        <source>Journals</source>
        <translation>日志脚本</translation>
    </message>
    <message>
        <source>Python Scripts</source>
        <translation>Python 脚本</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Words</source>
        <translation>文字</translation>
    </message>
    <message>
        <source>Variable</source>
        <translation>变量</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>Lines</source>
        <translation>行数</translation>
    </message>
    <message>
        <source>Journal or script</source>
        <translation>日志脚本或脚本</translation>
    </message>
    <message>
        <source>From line</source>
        <translation>起始行</translation>
    </message>
    <message>
        <source>Items</source>
        <translation>项目</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>For how long</source>
        <translation>持续时间</translation>
    </message>
    <message>
        <source>Window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>A window</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>Page</source>
        <translation>页</translation>
    </message>
    <message>
        <source>A page of the options</source>
        <translation>选项页</translation>
    </message>
    <message>
        <source>Journal</source>
        <translation>日志脚本</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Delay</source>
        <translation>延迟</translation>
    </message>
    <message>
        <source>Statement</source>
        <translation>语句</translation>
    </message>
    <message>
        <source>A file</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>A folded line of the console</source>
        <translation>控制台中折叠的行</translation>
    </message>
    <message>
        <source>One step of a journal</source>
        <translation>日志脚本中的一步</translation>
    </message>
    <message>
        <source>Parameters</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Parameter</source>
        <translation>参数</translation>
    </message>
    <message>
        <source>Type</source>
        <translation>类型</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>默认值</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>说明</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>最小值</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>最大值</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>单位</translation>
    </message>
    <message>
        <source>Whole number</source>
        <translation>整数</translation>
    </message>
    <message>
        <source>Text</source>
        <translation>文本</translation>
    </message>
    <message>
        <source>Choices</source>
        <translation>可选项</translation>
    </message>
    <message>
        <source>Choice</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>As size=2, parted by blanks</source>
        <translation>例如 size=2，用空格分隔</translation>
    </message>
    <message>
        <source>Parted by blanks</source>
        <translation>用空格分隔</translation>
    </message>
    <message>
        <source>Lines typed</source>
        <translation>输入过的行</translation>
    </message>
    <message>
        <source>Steps of the model</source>
        <translation>模型的步骤</translation>
    </message>
    <message>
        <source>Line number</source>
        <translation>行号</translation>
    </message>
    <message>
        <source>Real number</source>
        <translation>实数</translation>
    </message>
</context>
<context>
    <name>CommandSearch</name>
    <message>
        <source>Not available now.</source>
        <translation>现在不可用。</translation>
    </message>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Command %1</source>
        <translation>命令 %1</translation>
    </message>
    <message>
        <source>Options</source>
        <translation>选项</translation>
    </message>
    <message>
        <source>Recent file in %1</source>
        <translation>最近使用的文件，位于 %1</translation>
    </message>
</context>
<context>
    <name>JournalCheck</name>
    <message>
        <source>Chec&amp;k</source>
        <translation>检查(&amp;K)</translation>
    </message>
</context>
<context>
    <name>Navigation</name>
    <message>
        <source>Run</source>
        <translation>运行</translation>
    </message>
    <message>
        <source>Run journals and statements.</source>
        <translation>运行日志脚本和语句。</translation>
    </message>
    <message>
        <source>Play Journal</source>
        <translation>播放日志脚本</translation>
    </message>
    <message>
        <source>Python Statement</source>
        <translation>Python 语句</translation>
    </message>
    <message>
        <source>Ask</source>
        <translation>查询</translation>
    </message>
    <message>
        <source>Find out what there is and what was done.</source>
        <translation>查看有哪些内容以及做过什么。</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>History</source>
        <translation>历史</translation>
    </message>
    <message>
        <source>List Components</source>
        <translation>列出组件</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Change</source>
        <translation>更改</translation>
    </message>
    <message>
        <source>Change the session or end it.</source>
        <translation>更改或结束会话。</translation>
    </message>
    <message>
        <source>Variables</source>
        <translation>变量</translation>
    </message>
    <message>
        <source>Values that commands can refer to.</source>
        <translation>命令可以引用的值。</translation>
    </message>
    <message>
        <source>Set Variable</source>
        <translation>设置变量</translation>
    </message>
    <message>
        <source>Console</source>
        <translation>控制台</translation>
    </message>
    <message>
        <source>The text of the console.</source>
        <translation>控制台的文本。</translation>
    </message>
    <message>
        <source>Echo Text</source>
        <translation>输出文本</translation>
    </message>
    <message>
        <source>Components</source>
        <translation>组件</translation>
    </message>
    <message>
        <source>What can be added to the application.</source>
        <translation>可添加到应用程序的内容。</translation>
    </message>
    <message>
        <source>Load Component</source>
        <translation>加载组件</translation>
    </message>
    <message>
        <source>Unload Component</source>
        <translation>卸载组件</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Session</source>
        <translation>会话</translation>
    </message>
    <message>
        <source>The running application and its console.</source>
        <translation>正在运行的应用程序及其控制台。</translation>
    </message>
    <message>
        <source>What is shown in the console.</source>
        <translation>控制台中显示的内容。</translation>
    </message>
    <message>
        <source>Scripts</source>
        <translation>脚本</translation>
    </message>
    <message>
        <source>Journals and Python.</source>
        <translation>日志脚本和 Python。</translation>
    </message>
    <message>
        <source>Journals</source>
        <translation>日志脚本</translation>
    </message>
    <message>
        <source>Files of commands.</source>
        <translation>命令文件。</translation>
    </message>
    <message>
        <source>Python</source>
        <translation>Python</translation>
    </message>
    <message>
        <source>The Python interpreter of the application.</source>
        <translation>应用程序的 Python 解释器。</translation>
    </message>
    <message>
        <source>Count</source>
        <translation>计数</translation>
    </message>
    <message>
        <source>List Solids</source>
        <translation>列出实体</translation>
    </message>
    <message>
        <source>Windows</source>
        <translation>窗口</translation>
    </message>
    <message>
        <source>The windows of the program and their colors.</source>
        <translation>程序的窗口及其颜色。</translation>
    </message>
    <message>
        <source>Show Window</source>
        <translation>显示窗口</translation>
    </message>
    <message>
        <source>Hide Window</source>
        <translation>隐藏窗口</translation>
    </message>
    <message>
        <source>Edit Journal</source>
        <translation>编辑日志</translation>
    </message>
    <message>
        <source>Show Form</source>
        <translation>显示表单</translation>
    </message>
    <message>
        <source>Colors</source>
        <translation>颜色</translation>
    </message>
    <message>
        <source>Recover Unsaved Work</source>
        <translation>恢复未保存的工作</translation>
    </message>
    <message>
        <source>Check Journal</source>
        <translation>检查日志脚本</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
    <message>
        <source>Redo</source>
        <translation>重做</translation>
    </message>
    <message>
        <source>Declare Parameter</source>
        <translation>声明参数</translation>
    </message>
</context>
<context>
    <name>Ostrel</name>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
    </message>
</context>
<context>
    <name>QtCommandSearch</name>
    <message>
        <source>Find command</source>
        <translation>查找命令</translation>
    </message>
    <message>
        <source>Commands found</source>
        <translation>找到的命令</translation>
    </message>
    <message>
        <source>Command, menu entry, option or recent file</source>
        <translation>命令、菜单项、选项或最近使用的文件</translation>
    </message>
</context>
<context>
    <name>QtEditorOptions</name>
    <message>
        <source>Journal Editor</source>
        <translation>日志脚本编辑器</translation>
    </message>
    <message>
        <source>Language</source>
        <translation>语言</translation>
    </message>
    <message>
        <source>Commands, keywords, numbers, strings, names and comments in colors of their own. Long documents stay plain.</source>
        <translation>命令、关键字、数字、字符串、名称和注释各用一种颜色。过长的文档不着色。</translation>
    </message>
    <message>
        <source>C&amp;olor the words of journals and Python scripts</source>
        <translation>为日志脚本和 Python 脚本着色(&amp;O)</translation>
    </message>
    <message>
        <source>Where something fits Tab completes what is typed, as on the console. Elsewhere it indents.</source>
        <translation>如有匹配项，Tab 键像在控制台中一样补全输入；否则缩进。</translation>
    </message>
    <message>
        <source>Complete with &amp;Tab</source>
        <translation>用 Tab 键补全(&amp;T)</translation>
    </message>
</context>
<context>
    <name>QtPanelOptions</name>
    <message>
        <source>Panel</source>
        <translation>命令面板</translation>
    </message>
    <message>
        <source>Command Panel</source>
        <translation>命令面板</translation>
    </message>
    <message>
        <source>&amp;Rows of buttons, one below the other</source>
        <translation>多行按钮，逐行排列(&amp;R)</translation>
    </message>
    <message>
        <source>One &amp;level at a time, and the way that led there</source>
        <translation>每次显示一个层级及其路径(&amp;L)</translation>
    </message>
    <message>
        <source>Large pictures above the titles of the level</source>
        <translation>在当前层级的标题上方显示大图标</translation>
    </message>
    <message>
        <source>Large &amp;pictures</source>
        <translation>大图标(&amp;P)</translation>
    </message>
    <message>
        <source>Arrangement of the Commands</source>
        <translation>命令的排列方式</translation>
    </message>
    <message>
        <source>By what you want to &amp;do</source>
        <translation>按操作目的(&amp;D)</translation>
    </message>
    <message>
        <source>By what you &amp;work on</source>
        <translation>按操作对象(&amp;W)</translation>
    </message>
</context>
<context>
    <name>UndoOptions</name>
    <message>
        <source>&amp;Memory for undo</source>
        <translation>撤销所用内存(&amp;M)</translation>
    </message>
    <message>
        <source>The oldest steps are forgotten where all would take more. 0 keeps none.</source>
        <translation>全部步骤超出此值时，最早的步骤会被丢弃。0 表示不保留。</translation>
    </message>
    <message>
        <source>In use</source>
        <translation>已使用</translation>
    </message>
    <message>
        <source>%1 MiB, steps: %2</source>
        <translation>%1 MiB，步骤：%2</translation>
    </message>
    <message>
        <source>&amp;Undo</source>
        <translation>撤销(&amp;U)</translation>
    </message>
    <message>
        <source>There is nothing to undo.</source>
        <translation>没有可撤销的操作。</translation>
    </message>
    <message>
        <source>&amp;Redo</source>
        <translation>重做(&amp;R)</translation>
    </message>
    <message>
        <source>There is nothing to redo.</source>
        <translation>没有可重做的操作。</translation>
    </message>
    <message>
        <source>Undo</source>
        <translation>撤销</translation>
    </message>
</context>
<context>
    <name>Workbench</name>
    <message>
        <source>Version %1, the workbench of Ostrel</source>
        <translation>版本 %1，Ostrel 工作台</translation>
    </message>
    <message>
        <source>Plugins</source>
        <translation>插件</translation>
    </message>
    <message>
        <source>Loading the main window</source>
        <translation>正在加载主窗口</translation>
    </message>
    <message>
        <source>Commands: %1</source>
        <translation>命令：%1</translation>
    </message>
    <message>
        <source>Needs: %1</source>
        <translation>需要：%1</translation>
    </message>
</context>
<context>
    <name>fennar::ClauseRow</name>
    <message>
        <source>%1 (optional):</source>
        <translation>%1（可选）：</translation>
    </message>
    <message>
        <source>%1:</source>
        <translation>%1：</translation>
    </message>
    <message>
        <source>%1 %2</source>
        <translation>%1 %2</translation>
    </message>
    <message>
        <source>%1 must be filled in.</source>
        <translation>必须填写“%1”。</translation>
    </message>
    <message>
        <source>%1 must be filled in, too.</source>
        <translation>还必须填写“%1”。</translation>
    </message>
    <message>
        <source>%1: the numbers must not all be 0.</source>
        <translation>%1：数值不能全为 0。</translation>
    </message>
</context>
<context>
    <name>fennar::ColorScheme</name>
    <message>
        <source>S&amp;ystem Colors</source>
        <translation>系统配色(&amp;Y)</translation>
    </message>
    <message>
        <source>Li&amp;ght Colors</source>
        <translation>浅色(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Dark Colors</source>
        <translation>深色(&amp;K)</translation>
    </message>
</context>
<context>
    <name>fennar::CommandFinder</name>
    <message>
        <source>&amp;Find Command...</source>
        <translation>查找命令(&amp;F)...</translation>
    </message>
    <message>
        <source>Journal Editor</source>
        <translation>日志脚本编辑器</translation>
    </message>
    <message>
        <source>Not while a command is running.</source>
        <translation>命令运行期间不可用。</translation>
    </message>
    <message>
        <source>No loaded component does this.</source>
        <translation>没有已加载的组件提供此功能。</translation>
    </message>
</context>
<context>
    <name>fennar::CommandForm</name>
    <message>
        <source>Apply</source>
        <translation>应用</translation>
    </message>
    <message>
        <source>Command line</source>
        <translation>命令行</translation>
    </message>
    <message>
        <source>Run the command line</source>
        <translation>运行命令行</translation>
    </message>
    <message>
        <source>Apply %1</source>
        <translation>应用“%1”</translation>
    </message>
    <message>
        <source>Edit the line</source>
        <translation>编辑命令行</translation>
    </message>
    <message>
        <source>Way to use the command</source>
        <translation>命令的用法</translation>
    </message>
    <message>
        <source>Write the command line yourself</source>
        <translation>自行编写命令行</translation>
    </message>
</context>
<context>
    <name>fennar::CommandSearch</name>
    <message>
        <source>Nothing found.</source>
        <translation>没有找到。</translation>
    </message>
</context>
<context>
    <name>fennar::ConsoleOwner</name>
    <message>
        <source>Command</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Errors</source>
        <translation>错误</translation>
    </message>
    <message>
        <source>&amp;Commands of the Console</source>
        <translation>控制台命令(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Errors of the Console</source>
        <translation>控制台错误(&amp;E)</translation>
    </message>
    <message>
        <source>The command history cannot be written; it will be lost at the end.
</source>
        <translation>无法写入命令历史；退出时将会丢失。
</translation>
    </message>
</context>
<context>
    <name>fennar::ErrorPage</name>
    <message>
        <source>Double-click an error, or press Enter on it, to see its line in the journal editor.</source>
        <translation>双击错误或按 Enter 键，可在日志脚本编辑器中查看对应的行。</translation>
    </message>
    <message>
        <source>&amp;Show in Journal Editor</source>
        <translation>在日志脚本编辑器中显示(&amp;S)</translation>
    </message>
</context>
<context>
    <name>fennar::FormField</name>
    <message>
        <source>%1 in %2</source>
        <translation>%1（%2）</translation>
    </message>
    <message>
        <source>not given</source>
        <translation>未指定</translation>
    </message>
    <message>
        <source>Add to %1</source>
        <translation>添加到“%1”</translation>
    </message>
    <message>
        <source>Choose %1</source>
        <translation>选择“%1”</translation>
    </message>
    <message>
        <source>There is nothing to choose.</source>
        <translation>没有可选择的内容。</translation>
    </message>
    <message>
        <source>%1: a quote is not closed, or a variable is not set.</source>
        <translation>%1：引号未闭合，或变量未设置。</translation>
    </message>
    <message>
        <source>%1: there is no variable %2.</source>
        <translation>%1：没有变量 %2。</translation>
    </message>
    <message>
        <source>%1: there is no &quot;%2&quot;.</source>
        <translation>%1：没有“%2”。</translation>
    </message>
    <message>
        <source>%1: a letter, then letters, digits, &quot;_&quot;, &quot;-&quot; and &quot;.&quot;.</source>
        <translation>%1：以字母开头，其后为字母、数字、“_”、“-”和“.”。</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; has a meaning of its own.</source>
        <translation>%1：“%2”有特殊含义。</translation>
    </message>
    <message>
        <source>%1: there is a &quot;%2&quot; already.</source>
        <translation>%1：已存在“%2”。</translation>
    </message>
    <message>
        <source>%1: a letter, then letters, digits and &quot;_&quot;.</source>
        <translation>%1：以字母开头，其后为字母、数字和“_”。</translation>
    </message>
    <message>
        <source>%1: there is no file %2.</source>
        <translation>%1：没有文件 %2。</translation>
    </message>
    <message>
        <source>%1: there is no folder %2.</source>
        <translation>%1：没有文件夹 %2。</translation>
    </message>
    <message>
        <source>%1: %2 is a folder.</source>
        <translation>%1：%2 是文件夹。</translation>
    </message>
    <message>
        <source>%1: &quot;%2&quot; stands alone.</source>
        <translation>%1：“%2”必须单独使用。</translation>
    </message>
    <message>
        <source>%1: each one only once.</source>
        <translation>%1：每项只能出现一次。</translation>
    </message>
    <message numerus="yes">
        <source>%1: at least %n.</source>
        <translation>
            <numerusform>%1：至少 %n 个。</numerusform>
        </translation>
    </message>
    <message>
        <source>%1: %2.</source>
        <translation>%1：%2。</translation>
    </message>
</context>
<context>
    <name>fennar::HistorySearch</name>
    <message>
        <source>Not in the history: %1</source>
        <translation>历史中没有：%1</translation>
    </message>
    <message>
        <source>Search in the history: %1</source>
        <translation>在历史中搜索：%1</translation>
    </message>
</context>
<context>
    <name>fennar::JournalFiles</name>
    <message>
        <source>it is not a regular file, and cannot be compared with the text</source>
        <translation>它不是普通文件，无法与文本比较</translation>
    </message>
    <message>
        <source>it cannot be read back</source>
        <translation>无法将其读回</translation>
    </message>
    <message>
        <source>it has only %1 of %2 bytes</source>
        <translation>它只有 %1 字节，应有 %2 字节</translation>
    </message>
    <message>
        <source>%1 does not hold the whole journal: %2</source>
        <translation>%1 未包含完整的日志脚本：%2</translation>
    </message>
    <message>
        <source>Journal Not Saved</source>
        <translation>日志脚本未保存</translation>
    </message>
    <message>
        <source>The disk may be full. The journal counts as unsaved, and stays in the editor.</source>
        <translation>磁盘可能已满。该日志脚本仍视为未保存，并保留在编辑器中。</translation>
    </message>
    <message>
        <source>Journal Changed on Disk</source>
        <translation>磁盘上的日志脚本已更改</translation>
    </message>
    <message>
        <source>%1 was changed by another program.</source>
        <translation>%1 已被其他程序更改。</translation>
    </message>
    <message>
        <source>The journal has unsaved changes, too.</source>
        <translation>该日志脚本也有未保存的更改。</translation>
    </message>
    <message>
        <source>Until you decide, the journal is not saved. Reloading can be undone.</source>
        <translation>在您决定之前，不会保存该日志脚本。重新载入可以撤消。</translation>
    </message>
    <message>
        <source>&amp;Reload</source>
        <translation>重新载入(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Keep the Journal</source>
        <translation>保留日志脚本(&amp;K)</translation>
    </message>
    <message>
        <source>&amp;Compare...</source>
        <translation>比较(&amp;C)...</translation>
    </message>
    <message>
        <source>&amp;Later</source>
        <translation>以后(&amp;L)</translation>
    </message>
    <message>
        <source>%1 cannot be read</source>
        <translation>无法读取 %1</translation>
    </message>
    <message>
        <source>Differences of %1</source>
        <translation>%1 的差异</translation>
    </message>
    <message>
        <source>Differences</source>
        <translation>差异</translation>
    </message>
    <message>
        <source>- only in the journal
+ only in the file</source>
        <translation>- 仅在日志脚本中
+ 仅在文件中</translation>
    </message>
</context>
<context>
    <name>fennar::JournalPlayer</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>select from line %1 on in the journal editor and press Ctrl+F5</source>
        <translation>在日志脚本编辑器中从第 %1 行开始选择，然后按 Ctrl+F5</translation>
    </message>
    <message>
        <source>ERROR: a journal of the editor is being played; %1 is not
</source>
        <translation>ERROR: 正在播放编辑器中的日志脚本，因此未播放 %1
</translation>
    </message>
    <message>
        <source>Playing %1</source>
        <translation>正在播放 %1</translation>
    </message>
    <message>
        <source>Play Journal File</source>
        <translation>播放日志脚本文件</translation>
    </message>
    <message>
        <source>Journal Files (*.jou *.py);;All Files (*.*)</source>
        <translation>日志脚本文件 (*.jou *.py);;所有文件 (*.*)</translation>
    </message>
    <message>
        <source>Show Error</source>
        <translation>显示错误</translation>
    </message>
    <message>
        <source>The document that was played has been closed and is in no file.</source>
        <translation>所播放的文档已关闭，且未保存到文件。</translation>
    </message>
</context>
<context>
    <name>fennar::LevelView</name>
    <message>
        <source>Commands</source>
        <translation>命令</translation>
    </message>
    <message>
        <source>Go to %1</source>
        <translation>转到“%1”</translation>
    </message>
</context>
<context>
    <name>fennar::PanelView</name>
    <message>
        <source>There are no commands.</source>
        <translation>没有命令。</translation>
    </message>
</context>
<context>
    <name>fennar::WindowKeys</name>
    <message>
        <source>&amp;Next Pane</source>
        <translation>下一个窗格(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Pane</source>
        <translation>上一个窗格(&amp;P)</translation>
    </message>
</context>
</TS>
