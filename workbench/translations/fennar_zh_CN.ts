<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>Command</name>
    <message>
        <source>Makes a brick, or a cube.</source>
        <translation>创建长方体或立方体。</translation>
    </message>
    <message>
        <source>Looks for errors in a journal without running it.</source>
        <translation>在不运行日志脚本的情况下查找其中的错误。</translation>
    </message>
    <message>
        <source>Lists the components.</source>
        <translation>列出组件。</translation>
    </message>
    <message>
        <source>Makes a cone, or a part of one.</source>
        <translation>创建圆锥体或圆台。</translation>
    </message>
    <message>
        <source>Copies a solid.</source>
        <translation>复制一个实体。</translation>
    </message>
    <message>
        <source>Makes a cylinder.</source>
        <translation>创建圆柱体。</translation>
    </message>
    <message>
        <source>Deletes solids.</source>
        <translation>删除实体。</translation>
    </message>
    <message>
        <source>Counts.</source>
        <translation>计数。</translation>
    </message>
    <message>
        <source>Tells or sets what the graphics view shows.</source>
        <translation>说明或设置图形视图显示的内容。</translation>
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
        <source>Writes solids or the mesh to a file.</source>
        <translation>将实体或网格写入文件。</translation>
    </message>
    <message>
        <source>Shows all solids, from the same side.</source>
        <translation>从同一方向显示所有实体。</translation>
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
        <source>Reads solids or a mesh from a file.</source>
        <translation>从文件读取实体或网格。</translation>
    </message>
    <message>
        <source>Keeps what several solids have in common.</source>
        <translation>保留多个实体的公共部分。</translation>
    </message>
    <message>
        <source>Lists solids with their measures.</source>
        <translation>列出实体及其度量值。</translation>
    </message>
    <message>
        <source>Loads a component, now and at each start.</source>
        <translation>立即加载组件，并在每次启动时加载。</translation>
    </message>
    <message>
        <source>Fills solids with tetrahedra.</source>
        <translation>用四面体填充实体。</translation>
    </message>
    <message>
        <source>Moves solids.</source>
        <translation>移动实体。</translation>
    </message>
    <message>
        <source>Starts an empty model.</source>
        <translation>新建空模型。</translation>
    </message>
    <message>
        <source>Opens a model that was saved.</source>
        <translation>打开已保存的模型。</translation>
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
        <source>Measures the volume elements of the mesh.</source>
        <translation>测量网格的体单元。</translation>
    </message>
    <message>
        <source>Ends the application.</source>
        <translation>结束应用程序。</translation>
    </message>
    <message>
        <source>Offers the unsaved work that was kept for later.</source>
        <translation>提供先前保留下来的未保存工作。</translation>
    </message>
    <message>
        <source>Makes again what was undone last.</source>
        <translation>重做最近撤销的内容。</translation>
    </message>
    <message>
        <source>Gives a solid another name.</source>
        <translation>更改实体的名称。</translation>
    </message>
    <message>
        <source>Turns solids.</source>
        <translation>旋转实体。</translation>
    </message>
    <message>
        <source>Saves the model.</source>
        <translation>保存模型。</translation>
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
        <source>Makes a sphere.</source>
        <translation>创建球体。</translation>
    </message>
    <message>
        <source>Counts the nodes and elements of the mesh.</source>
        <translation>统计网格的节点和单元。</translation>
    </message>
    <message>
        <source>Takes the tools away from a solid.</source>
        <translation>从实体中减去工具实体。</translation>
    </message>
    <message>
        <source>Makes a torus.</source>
        <translation>创建圆环体。</translation>
    </message>
    <message>
        <source>Takes back the last command that has changed the model.</source>
        <translation>撤回最近一条更改模型的命令。</translation>
    </message>
    <message>
        <source>Makes one solid of several.</source>
        <translation>将多个实体合为一个。</translation>
    </message>
    <message>
        <source>Unloads a component, now and at each start.</source>
        <translation>立即卸载组件，以后启动时也不加载。</translation>
    </message>
    <message>
        <source>Looks at the solids from that side, and shows all of them.</source>
        <translation>从该侧观察实体，并显示全部。</translation>
    </message>
    <message>
        <source>Lists the lines typed so far, or the steps that can be undone and redone.</source>
        <translation>列出迄今输入过的行，或者可以撤销和重做的步骤。</translation>
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
        <source>Number</source>
        <translation>数量</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>模型</translation>
    </message>
    <message>
        <source>Model Files</source>
        <translation>模型文件</translation>
    </message>
    <message>
        <source>File</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Format</source>
        <translation>格式</translation>
    </message>
    <message>
        <source>Needed only where the ending of the file does not tell it.</source>
        <translation>仅当文件扩展名无法说明格式时才需要。</translation>
    </message>
    <message>
        <source>Size of the triangles</source>
        <translation>三角形尺寸</translation>
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
        <source>Radius of the top</source>
        <translation>顶面半径</translation>
    </message>
    <message>
        <source>Without it the cone ends in a point.</source>
        <translation>不指定时圆锥收于一点。</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>工具</translation>
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
        <source>Without depth and height it is a cube.</source>
        <translation>不指定深度和高度时为立方体。</translation>
    </message>
    <message>
        <source>Center</source>
        <translation>中心</translation>
    </message>
    <message>
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Radius of the tube</source>
        <translation>管半径</translation>
    </message>
    <message>
        <source>Offset</source>
        <translation>位移</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Point on the axis</source>
        <translation>轴上的点</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>实体</translation>
    </message>
    <message>
        <source>Size of the elements</source>
        <translation>单元尺寸</translation>
    </message>
    <message>
        <source>Show all messages of the mesher</source>
        <translation>显示网格生成器的所有消息</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>度量</translation>
    </message>
    <message>
        <source>X</source>
        <translation>X</translation>
    </message>
    <message>
        <source>Y</source>
        <translation>Y</translation>
    </message>
    <message>
        <source>Z</source>
        <translation>Z</translation>
    </message>
    <message>
        <source>Axis</source>
        <translation>轴</translation>
    </message>
    <message>
        <source>The direction; its length does not matter.</source>
        <translation>方向；长度无关紧要。</translation>
    </message>
    <message>
        <source>New name</source>
        <translation>新名称</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Without one the solid is named after its kind and number.</source>
        <translation>不指定时按实体的种类和编号命名。</translation>
    </message>
    <message>
        <source>Side</source>
        <translation>侧面</translation>
    </message>
    <message>
        <source>What</source>
        <translation>内容</translation>
    </message>
    <message>
        <source>State</source>
        <translation>状态</translation>
    </message>
    <message>
        <source>Whom to greet</source>
        <translation>问候对象</translation>
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
        <source>Drop unsaved changes</source>
        <translation>放弃未保存的更改</translation>
    </message>
    <message>
        <source>One step of a journal</source>
        <translation>日志脚本中的一步</translation>
    </message>
    <message>
        <source>Algorithm</source>
        <translation>算法</translation>
    </message>
    <message>
        <source>Threads</source>
        <translation>线程数</translation>
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
    <message>
        <source>D&amp;emo Dialog...</source>
        <translation>演示对话框(&amp;E)...</translation>
    </message>
    <message>
        <source>Count to, unless told</source>
        <translation>默认计数上限</translation>
    </message>
</context>
<context>
    <name>Hello</name>
    <message>
        <source>&amp;Greet the World</source>
        <translation>问候世界(&amp;G)</translation>
    </message>
    <message>
        <source>&amp;Hello</source>
        <translation>你好(&amp;L)</translation>
    </message>
    <message>
        <source>Greet</source>
        <translation>问候</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>名称</translation>
    </message>
    <message>
        <source>Hello</source>
        <translation>你好</translation>
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
        <source>Make</source>
        <translation>创建</translation>
    </message>
    <message>
        <source>Make solids.</source>
        <translation>创建实体。</translation>
    </message>
    <message>
        <source>Brick</source>
        <translation>长方体</translation>
    </message>
    <message>
        <source>Cylinder</source>
        <translation>圆柱体</translation>
    </message>
    <message>
        <source>Sphere</source>
        <translation>球体</translation>
    </message>
    <message>
        <source>Cone</source>
        <translation>圆锥体</translation>
    </message>
    <message>
        <source>Torus</source>
        <translation>圆环体</translation>
    </message>
    <message>
        <source>Copy Solid</source>
        <translation>复制实体</translation>
    </message>
    <message>
        <source>Modify</source>
        <translation>修改</translation>
    </message>
    <message>
        <source>Change solids and combine them.</source>
        <translation>修改和组合实体。</translation>
    </message>
    <message>
        <source>Combine</source>
        <translation>组合</translation>
    </message>
    <message>
        <source>Make one solid of several.</source>
        <translation>将多个实体合为一个。</translation>
    </message>
    <message>
        <source>Unite</source>
        <translation>合并</translation>
    </message>
    <message>
        <source>Subtract</source>
        <translation>相减</translation>
    </message>
    <message>
        <source>Intersect</source>
        <translation>相交</translation>
    </message>
    <message>
        <source>Move Solids</source>
        <translation>移动实体</translation>
    </message>
    <message>
        <source>Rotate Solids</source>
        <translation>旋转实体</translation>
    </message>
    <message>
        <source>Rename Solid</source>
        <translation>重命名实体</translation>
    </message>
    <message>
        <source>Delete Solids</source>
        <translation>删除实体</translation>
    </message>
    <message>
        <source>Mesh</source>
        <translation>网格</translation>
    </message>
    <message>
        <source>Make a mesh and look at its numbers.</source>
        <translation>划分网格并查看其数据。</translation>
    </message>
    <message>
        <source>Mesh Solids</source>
        <translation>划分实体网格</translation>
    </message>
    <message>
        <source>Mesh Statistics</source>
        <translation>网格统计</translation>
    </message>
    <message>
        <source>Mesh Quality</source>
        <translation>网格质量</translation>
    </message>
    <message>
        <source>Look</source>
        <translation>查看</translation>
    </message>
    <message>
        <source>Choose what the graphics view shows.</source>
        <translation>选择图形视图显示的内容。</translation>
    </message>
    <message>
        <source>Look From</source>
        <translation>观察方向</translation>
    </message>
    <message>
        <source>Fit</source>
        <translation>适合窗口</translation>
    </message>
    <message>
        <source>Display</source>
        <translation>显示</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Open and save models, exchange them with other programs.</source>
        <translation>打开和保存模型，并与其他程序交换。</translation>
    </message>
    <message>
        <source>New Model</source>
        <translation>新建模型</translation>
    </message>
    <message>
        <source>Open Model</source>
        <translation>打开模型</translation>
    </message>
    <message>
        <source>Save Model</source>
        <translation>保存模型</translation>
    </message>
    <message>
        <source>Import</source>
        <translation>导入</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>导出</translation>
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
        <source>Solids</source>
        <translation>实体</translation>
    </message>
    <message>
        <source>The solids of the model.</source>
        <translation>模型的实体。</translation>
    </message>
    <message>
        <source>New Solid</source>
        <translation>新建实体</translation>
    </message>
    <message>
        <source>Simple solids to begin with.</source>
        <translation>用于起步的简单实体。</translation>
    </message>
    <message>
        <source>One solid of several.</source>
        <translation>由多个实体得到一个实体。</translation>
    </message>
    <message>
        <source>The mesh that was made last.</source>
        <translation>最近生成的网格。</translation>
    </message>
    <message>
        <source>Model</source>
        <translation>模型</translation>
    </message>
    <message>
        <source>The model as a whole, and its files.</source>
        <translation>整个模型及其文件。</translation>
    </message>
    <message>
        <source>View</source>
        <translation>视图</translation>
    </message>
    <message>
        <source>What the graphics view shows.</source>
        <translation>图形视图显示的内容。</translation>
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
    <name>RecoveryWriter</name>
    <message>
        <source>no folder can be made in &quot;%1&quot;</source>
        <translation>无法在“%1”中创建文件夹</translation>
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
    <name>fennar::ColourScheme</name>
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
    <name>fennar::EditorOptions</name>
    <message>
        <source>Journal Editor</source>
        <translation>日志脚本编辑器</translation>
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
        <source>%1: a whole number from %2 to %3.</source>
        <translation>%1：%2 到 %3 之间的整数。</translation>
    </message>
    <message>
        <source>%1: a number from %2 to %3.</source>
        <translation>%1：%2 到 %3 之间的数。</translation>
    </message>
    <message>
        <source>%1: a whole number from %2 on.</source>
        <translation>%1：不小于 %2 的整数。</translation>
    </message>
    <message>
        <source>%1: a number from %2 on.</source>
        <translation>%1：不小于 %2 的数。</translation>
    </message>
    <message>
        <source>%1: a whole number.</source>
        <translation>%1：整数。</translation>
    </message>
    <message>
        <source>%1: a number, as 2.5 or 1e-3.</source>
        <translation>%1：数值，例如 2.5 或 1e-3。</translation>
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
    <name>fennar::JournalCheck</name>
    <message>
        <source>Chec&amp;k</source>
        <translation>检查(&amp;K)</translation>
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
    <name>fennar::PanelOptions</name>
    <message>
        <source>Panel</source>
        <translation>命令面板</translation>
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
<context>
    <name>fennar::geometry::GeometryDock</name>
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
    <name>fennar::geometry::GeometryFileHandler</name>
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
    <name>fennar::geometry::GeometryWindow</name>
    <message>
        <source>&amp;Cylinder...</source>
        <translation>圆柱体(&amp;C)...</translation>
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
        <source>&amp;Torus...</source>
        <translation>圆环体(&amp;T)...</translation>
    </message>
    <message>
        <source>&amp;Move...</source>
        <translation>移动(&amp;M)...</translation>
    </message>
    <message>
        <source>&amp;Rotate...</source>
        <translation>旋转(&amp;R)...</translation>
    </message>
    <message>
        <source>Co&amp;py...</source>
        <translation>复制(&amp;P)...</translation>
    </message>
    <message>
        <source>Re&amp;name...</source>
        <translation>重命名(&amp;N)...</translation>
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
    <message>
        <source>No solid is selected.</source>
        <translation>未选择任何实体。</translation>
    </message>
    <message>
        <source>Fewer than two solids are selected.</source>
        <translation>选择的实体少于两个。</translation>
    </message>
</context>
<context>
    <name>fennar::geometry::SaveQuestion</name>
    <message>
        <source>Replace File</source>
        <translation>替换文件</translation>
    </message>
    <message>
        <source>%1 already exists.
Do you want to replace it?</source>
        <translation>%1 已存在。
是否替换？</translation>
    </message>
</context>
<context>
    <name>fennar::graphics::GraphicsView</name>
    <message>
        <source>Graphics</source>
        <translation>图形</translation>
    </message>
</context>
<context>
    <name>fennar::graphics::GraphicsWindow</name>
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
<context>
    <name>fennar::recovery::DocumentKeeper</name>
    <message>
        <source>Unsaved journals cannot be kept for a recovery: %1. It will be tried again.</source>
        <translation>无法保留未保存的日志脚本以供恢复：%1。稍后将重试。</translation>
    </message>
</context>
<context>
    <name>fennar::recovery::KeptDocument</name>
    <message>
        <source>Untitled</source>
        <translation>未命名</translation>
    </message>
    <message>
        <source>%1 (changed %2)</source>
        <translation>%1（修改于 %2）</translation>
    </message>
    <message>
        <source>Untitled model</source>
        <translation>未命名模型</translation>
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
        <source>and %1 more</source>
        <translation>以及另外 %1 个</translation>
    </message>
    <message>
        <source>Recover Unsaved Work</source>
        <translation>恢复未保存的工作</translation>
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
