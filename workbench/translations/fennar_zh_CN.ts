<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>CommandDialog</name>
    <message>
        <source>Fill in all fields; numbers have a decimal point.</source>
        <translation>请填写所有字段；数字使用小数点。</translation>
    </message>
</context>
<context>
    <name>CommandForm</name>
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
</context>
<context>
    <name>ConsoleOwner</name>
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
    <message>
        <source>ERROR: %1
</source>
        <translation>ERROR: %1
</translation>
    </message>
</context>
<context>
    <name>DemoOptions</name>
    <message>
        <source>Count to, unless told</source>
        <translation>默认计数上限</translation>
    </message>
</context>
<context>
    <name>DemoWindow</name>
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
        <source>Demo &amp;Dialog...</source>
        <translation>演示对话框(&amp;D)...</translation>
    </message>
    <message>
        <source>Demo component</source>
        <translation>演示组件</translation>
    </message>
    <message>
        <source>&amp;Demo</source>
        <translation>演示(&amp;D)</translation>
    </message>
    <message>
        <source>Demo &amp;Help</source>
        <translation>演示帮助(&amp;H)</translation>
    </message>
    <message>
        <source>Demo Tools</source>
        <translation>演示工具</translation>
    </message>
    <message>
        <source>Demo</source>
        <translation>演示</translation>
    </message>
    <message>
        <source>This dialog goes with its component.</source>
        <translation>此对话框随其组件一起关闭。</translation>
    </message>
    <message>
        <source>Number</source>
        <translation>数量</translation>
    </message>
</context>
<context>
    <name>DocumentKeeper</name>
    <message>
        <source>no folder can be made in &quot;%1&quot;</source>
        <translation>无法在“%1”中创建文件夹</translation>
    </message>
    <message>
        <source>Unsaved journals cannot be kept for a recovery: %1. It will be tried again.</source>
        <translation>无法保留未保存的日志脚本以供恢复：%1。稍后将重试。</translation>
    </message>
</context>
<context>
    <name>GeometryDock</name>
    <message>
        <source>Model</source>
        <translation>模型</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>体积</translation>
    </message>
    <message>
        <source>Solids</source>
        <translation>实体</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>网格</translation>
    </message>
    <message>
        <source>none</source>
        <translation>无</translation>
    </message>
    <message>
        <source>of an earlier model</source>
        <translation>属于较早的模型</translation>
    </message>
    <message>
        <source>Nodes</source>
        <translation>节点</translation>
    </message>
</context>
<context>
    <name>GeometryFileHandler</name>
    <message>
        <source>Model Files (*.mdl)</source>
        <translation>模型文件 (*.mdl)</translation>
    </message>
    <message>
        <source>All Files (*)</source>
        <translation>所有文件 (*)</translation>
    </message>
    <message>
        <source>Set Directory</source>
        <translation>设置目录</translation>
    </message>
</context>
<context>
    <name>GeometryWindow</name>
    <message>
        <source>Centre (X Y Z)</source>
        <translation>中心 (X Y Z)</translation>
    </message>
    <message>
        <source>Axis (X Y Z)</source>
        <translation>轴 (X Y Z)</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>深度</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>&amp;Cylinder...</source>
        <translation>圆柱体(&amp;C)...</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>&amp;Sphere...</source>
        <translation>球体(&amp;S)...</translation>
    </message>
    <message>
        <source>C&amp;one...</source>
        <translation>圆锥体(&amp;O)...</translation>
    </message>
    <message>
        <source>Top radius</source>
        <translation>顶面半径</translation>
    </message>
    <message>
        <source>&amp;Torus...</source>
        <translation>圆环体(&amp;T)...</translation>
    </message>
    <message>
        <source>Radius of the tube</source>
        <translation>管半径</translation>
    </message>
    <message>
        <source>&amp;Move...</source>
        <translation>移动(&amp;M)...</translation>
    </message>
    <message>
        <source>Solids</source>
        <translation>实体</translation>
    </message>
    <message>
        <source>By (X Y Z)</source>
        <translation>位移 (X Y Z)</translation>
    </message>
    <message>
        <source>&amp;Rotate...</source>
        <translation>旋转(&amp;R)...</translation>
    </message>
    <message>
        <source>Degrees</source>
        <translation>角度（度）</translation>
    </message>
    <message>
        <source>About (X Y Z)</source>
        <translation>旋转中心 (X Y Z)</translation>
    </message>
    <message>
        <source>Co&amp;py...</source>
        <translation>复制(&amp;P)...</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>实体</translation>
    </message>
    <message>
        <source>Re&amp;name...</source>
        <translation>重命名(&amp;N)...</translation>
    </message>
    <message>
        <source>New name</source>
        <translation>新名称</translation>
    </message>
    <message>
        <source>&amp;Unite</source>
        <translation>合并(&amp;U)</translation>
    </message>
    <message>
        <source>Su&amp;btract...</source>
        <translation>相减(&amp;B)...</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具实体</translation>
    </message>
    <message>
        <source>From</source>
        <translation>从</translation>
    </message>
    <message>
        <source>&amp;Intersect</source>
        <translation>相交(&amp;I)</translation>
    </message>
    <message>
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>M&amp;esh...</source>
        <translation>划分网格(&amp;E)...</translation>
    </message>
    <message>
        <source>Solids (all if empty)</source>
        <translation>实体（留空表示全部）</translation>
    </message>
    <message>
        <source>Size</source>
        <translation>单元尺寸</translation>
    </message>
    <message>
        <source>&amp;List</source>
        <translation>列表(&amp;L)</translation>
    </message>
    <message>
        <source>Mesh St&amp;atistics</source>
        <translation>网格统计(&amp;A)</translation>
    </message>
    <message>
        <source>Mesh &amp;Quality</source>
        <translation>网格质量(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;Geometry</source>
        <translation>几何(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Geometry Commands</source>
        <translation>几何命令(&amp;G)</translation>
    </message>
    <message>
        <source>Geometry Tools</source>
        <translation>几何工具</translation>
    </message>
    <message>
        <source>Bric&amp;k...</source>
        <translation>长方体(&amp;K)...</translation>
    </message>
</context>
<context>
    <name>GraphicsView</name>
    <message>
        <source>Graphics</source>
        <translation>图形</translation>
    </message>
</context>
<context>
    <name>GraphicsWindow</name>
    <message>
        <source>&amp;Front</source>
        <translation>前视图(&amp;F)</translation>
    </message>
    <message>
        <source>B&amp;ack</source>
        <translation>后视图(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Left</source>
        <translation>左视图(&amp;L)</translation>
    </message>
    <message>
        <source>&amp;Right</source>
        <translation>右视图(&amp;R)</translation>
    </message>
    <message>
        <source>T&amp;op</source>
        <translation>俯视图(&amp;O)</translation>
    </message>
    <message>
        <source>&amp;Bottom</source>
        <translation>仰视图(&amp;B)</translation>
    </message>
    <message>
        <source>&amp;Isometric</source>
        <translation>等轴测视图(&amp;I)</translation>
    </message>
    <message>
        <source>Fi&amp;t</source>
        <translation>适合窗口(&amp;T)</translation>
    </message>
    <message>
        <source>&amp;Shaded</source>
        <translation>着色(&amp;S)</translation>
    </message>
    <message>
        <source>&amp;Wireframe</source>
        <translation>线框(&amp;W)</translation>
    </message>
    <message>
        <source>&amp;Mesh</source>
        <translation>网格(&amp;M)</translation>
    </message>
    <message>
        <source>Graphics Tools</source>
        <translation>图形工具</translation>
    </message>
</context>
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
<context>
    <name>JournalEditor</name>
    <message>
        <source>Journal Editor</source>
        <translation>日志脚本编辑器</translation>
    </message>
</context>
<context>
    <name>JournalPlayer</name>
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
</context>
<context>
    <name>KeptDocument</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>%1 (changed %2)</source>
        <translation>%1（修改于 %2）</translation>
    </message>
</context>
<context>
    <name>LevelView</name>
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
    <name>MeshElements</name>
    <message>
        <source>Point</source>
        <translation>点</translation>
    </message>
    <message>
        <source>Line 2</source>
        <translation>线 2</translation>
    </message>
    <message>
        <source>Triangle 3</source>
        <translation>三角形 3</translation>
    </message>
    <message>
        <source>Quadrilateral 4</source>
        <translation>四边形 4</translation>
    </message>
    <message>
        <source>Tetrahedron 4</source>
        <translation>四面体 4</translation>
    </message>
    <message>
        <source>Hexahedron 8</source>
        <translation>六面体 8</translation>
    </message>
    <message>
        <source>Prism 6</source>
        <translation>棱柱 6</translation>
    </message>
    <message>
        <source>Pyramid 5</source>
        <translation>棱锥 5</translation>
    </message>
</context>
<context>
    <name>MesherReport</name>
    <message>
        <source>reading the file</source>
        <translation>正在读取文件</translation>
    </message>
    <message>
        <source>reading the solids</source>
        <translation>正在读取实体</translation>
    </message>
    <message>
        <source>meshing edges</source>
        <translation>正在划分边网格</translation>
    </message>
    <message>
        <source>meshing faces</source>
        <translation>正在划分面网格</translation>
    </message>
    <message>
        <source>meshing volumes</source>
        <translation>正在划分体网格</translation>
    </message>
    <message>
        <source>measuring</source>
        <translation>正在测量</translation>
    </message>
    <message>
        <source>writing</source>
        <translation>正在写入</translation>
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
        <source>Runs the commands of a journal file.</source>
        <translation>运行日志脚本文件中的命令。</translation>
    </message>
    <message>
        <source>Python Statement</source>
        <translation>Python 语句</translation>
    </message>
    <message>
        <source>Runs one Python statement.</source>
        <translation>运行一条 Python 语句。</translation>
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
        <source>Lists all commands, or explains one of them.</source>
        <translation>列出所有命令，或说明其中一个。</translation>
    </message>
    <message>
        <source>History</source>
        <translation>历史</translation>
    </message>
    <message>
        <source>Lists the lines typed so far, or the last ones.</source>
        <translation>列出目前输入的行，或最后几行。</translation>
    </message>
    <message>
        <source>List Components</source>
        <translation>列出组件</translation>
    </message>
    <message>
        <source>Lists the components.</source>
        <translation>列出组件。</translation>
    </message>
    <message>
        <source>Picture</source>
        <translation>图片</translation>
    </message>
    <message>
        <source>Writes a picture of the main window.</source>
        <translation>保存主窗口的图片。</translation>
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
        <source>Gives a variable a value, tells its value, or lists all variables.</source>
        <translation>为变量赋值、显示其值或列出所有变量。</translation>
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
        <source>Prints a text to the console.</source>
        <translation>在控制台输出文本。</translation>
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
        <source>Loads a component, now and at each start.</source>
        <translation>立即加载组件，并在每次启动时加载。</translation>
    </message>
    <message>
        <source>Unload Component</source>
        <translation>卸载组件</translation>
    </message>
    <message>
        <source>Unloads a component, now and at each start.</source>
        <translation>立即卸载组件，以后启动时也不加载。</translation>
    </message>
    <message>
        <source>Quit</source>
        <translation>退出</translation>
    </message>
    <message>
        <source>Ends the application.</source>
        <translation>结束应用程序。</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Selects what is named, and nothing else.</source>
        <translation>仅选择指定的对象。</translation>
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
</context>
<context>
    <name>PanelView</name>
    <message>
        <source>There are no commands.</source>
        <translation>没有命令。</translation>
    </message>
</context>
<context>
    <name>Recovery</name>
    <message>
        <source>ERROR: Not all journals could be read. They stay in %1.
</source>
        <translation>ERROR: 部分日志脚本无法读取，它们保留在 %1 中。
</translation>
    </message>
</context>
<context>
    <name>RecoveryOffer</name>
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
        <source>Recover Journals</source>
        <translation>恢复日志脚本</translation>
    </message>
    <message>
        <source>and %1 more</source>
        <translation>以及另外 %1 个</translation>
    </message>
    <message>
        <source>Unsaved journals were kept when the program ended unexpectedly:</source>
        <translation>程序意外结束时保留了未保存的日志脚本：</translation>
    </message>
</context>
<context>
    <name>WindowKeys</name>
    <message>
        <source>&amp;Next Pane</source>
        <translation>下一个窗格(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Previous Pane</source>
        <translation>上一个窗格(&amp;P)</translation>
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
</context>
</TS>
