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
        <source>Writes solids or the mesh to a file.</source>
        <translation>将实体或网格写入文件。</translation>
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
        <source>Measures the volume elements of the mesh.</source>
        <translation>测量网格的体单元。</translation>
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
        <source>Makes one solid of several.</source>
        <translation>将多个实体合为一个。</translation>
    </message>
</context>
<context>
    <name>CommandError</name>
    <message>
        <source>the ending of the file tells no format; say which one with &quot;as&quot; (%1)</source>
        <translation>文件扩展名无法确定格式；请用“as”指明（%1）</translation>
    </message>
    <message>
        <source>files of the format %1 cannot be read</source>
        <translation>无法读取 %1 格式的文件</translation>
    </message>
    <message>
        <source>files of the format %1 cannot be written</source>
        <translation>无法写入 %1 格式的文件</translation>
    </message>
    <message>
        <source>the end of the line (%1 files hold the last mesh)</source>
        <translation>行尾（%1 文件保存最近的网格）</translation>
    </message>
    <message>
        <source>the end of the line (%1 files hold solids)</source>
        <translation>行尾（%1 文件保存实体）</translation>
    </message>
    <message>
        <source>a radius of the tube (less than %1)</source>
        <translation>管半径（小于 %1）</translation>
    </message>
</context>
<context>
    <name>CommandParameter</name>
    <message>
        <source>Model</source>
        <translation>模型</translation>
    </message>
    <message>
        <source>Model Files</source>
        <translation>模型文件</translation>
    </message>
    <message>
        <source>Drop unsaved changes</source>
        <translation>放弃未保存的更改</translation>
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
        <source>Radius</source>
        <translation>半径</translation>
    </message>
    <message>
        <source>Height</source>
        <translation>高度</translation>
    </message>
    <message>
        <source>Radius of the tube</source>
        <translation>管半径</translation>
    </message>
    <message>
        <source>Depth</source>
        <translation>深度</translation>
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
        <source>Offset</source>
        <translation>位移</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>角度</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>实体</translation>
    </message>
    <message>
        <source>Width</source>
        <translation>宽度</translation>
    </message>
    <message>
        <source>Point on the axis</source>
        <translation>轴上的点</translation>
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
        <source>Size of the elements</source>
        <translation>单元尺寸</translation>
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
        <source>Show all messages of the mesher</source>
        <translation>显示网格生成器的所有消息</translation>
    </message>
    <message>
        <source>Measure</source>
        <translation>度量</translation>
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
        <source>measuring</source>
        <translation>正在测量</translation>
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
        <source>writing</source>
        <translation>正在写入</translation>
    </message>
</context>
<context>
    <name>Navigation</name>
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
        <source>List Solids</source>
        <translation>列出实体</translation>
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
        <source>Geometry Tools</source>
        <translation>几何工具</translation>
    </message>
    <message>
        <source>No solid is selected.</source>
        <translation>未选择任何实体。</translation>
    </message>
    <message>
        <source>Fewer than two solids are selected.</source>
        <translation>选择的实体少于两个。</translation>
    </message>
    <message>
        <source>Bric&amp;k...</source>
        <translation>长方体(&amp;K)...</translation>
    </message>
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
</TS>
