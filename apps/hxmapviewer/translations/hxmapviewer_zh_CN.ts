<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>HXAttributeForm</name>
    <message>
        <source>New feature of %1</source>
        <translation>%1 的新要素</translation>
    </message>
    <message>
        <source>Attributes of %1</source>
        <translation>%1 的属性</translation>
    </message>
    <message>
        <source>Edit attributes</source>
        <translation>编辑属性</translation>
    </message>
</context>
<context>
    <name>HXCommandDock</name>
    <message>
        <source>Command line</source>
        <translation>命令行</translation>
    </message>
    <message>
        <source>Command:</source>
        <translation>命令：</translation>
    </message>
    <message>
        <source>pan, zoomin, zoomout, select, identify, or a command for the current tool</source>
        <translation>pan、zoomin、zoomout、select、identify，或当前工具的命令</translation>
    </message>
    <message>
        <source>Unknown command: %1</source>
        <translation>未知命令：%1</translation>
    </message>
</context>
<context>
    <name>HXEditActions</name>
    <message>
        <source>Edit</source>
        <translation>编辑</translation>
    </message>
    <message>
        <source>&amp;Edit</source>
        <translation>编辑(&amp;E)</translation>
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
        <source>&amp;Delete</source>
        <translation>删除(&amp;D)</translation>
    </message>
    <message>
        <source>Line</source>
        <translation>线</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>面</translation>
    </message>
    <message>
        <source>Double line</source>
        <translation>双线</translation>
    </message>
    <message>
        <source>Control point</source>
        <translation>控制点</translation>
    </message>
    <message>
        <source>Distance</source>
        <translation>距离</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>面积</translation>
    </message>
</context>
<context>
    <name>HXFileOpening</name>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Stop opening</source>
        <translation>停止打开</translation>
    </message>
    <message>
        <source>Opening %1</source>
        <translation>正在打开 %1</translation>
    </message>
</context>
<context>
    <name>HXIdentifyPanel</name>
    <message>
        <source>Identify results</source>
        <translation>识别结果</translation>
    </message>
    <message>
        <source>Field</source>
        <translation>字段</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>值</translation>
    </message>
    <message>
        <source>feature %1</source>
        <translation>要素 %1</translation>
    </message>
</context>
<context>
    <name>HXLabelMenu</name>
    <message>
        <source>Label by</source>
        <translation>标注字段</translation>
    </message>
    <message>
        <source>No labels</source>
        <translation>不标注</translation>
    </message>
</context>
<context>
    <name>HXLayerPanel</name>
    <message>
        <source>Layers</source>
        <translation>图层</translation>
    </message>
    <message>
        <source>Remove layer</source>
        <translation>移除图层</translation>
    </message>
</context>
<context>
    <name>HXLayoutWindow</name>
    <message>
        <source>Layouts (*.hxlayout)</source>
        <translation>页面布局 (*.hxlayout)</translation>
    </message>
    <message>
        <source>Layout</source>
        <translation>页面布局</translation>
    </message>
    <message>
        <source>New &amp;layout</source>
        <translation>新建页面布局(&amp;L)</translation>
    </message>
    <message>
        <source>Map</source>
        <translation>地图</translation>
    </message>
    <message>
        <source>Open la&amp;yout…</source>
        <translation>打开页面布局(&amp;Y)…</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;New layout</source>
        <translation>新建页面布局(&amp;N)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>&amp;Save</source>
        <translation>保存(&amp;S)</translation>
    </message>
    <message>
        <source>Save &amp;as…</source>
        <translation>另存为(&amp;A)…</translation>
    </message>
    <message>
        <source>&amp;Print…</source>
        <translation>打印(&amp;P)…</translation>
    </message>
    <message>
        <source>Export P&amp;DF…</source>
        <translation>导出 PDF(&amp;D)…</translation>
    </message>
    <message>
        <source>Export &amp;image…</source>
        <translation>导出图片(&amp;I)…</translation>
    </message>
    <message>
        <source>&amp;Close</source>
        <translation>关闭(&amp;C)</translation>
    </message>
    <message>
        <source>&amp;Page</source>
        <translation>页面(&amp;P)</translation>
    </message>
    <message>
        <source>&amp;Landscape</source>
        <translation>横向(&amp;L)</translation>
    </message>
    <message>
        <source>Page tools</source>
        <translation>页面工具</translation>
    </message>
    <message>
        <source>Select elements</source>
        <translation>选择图元</translation>
    </message>
    <message>
        <source>Pan</source>
        <translation>平移</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Opening %1…</source>
        <translation>正在打开 %1…</translation>
    </message>
    <message>
        <source>Opened %1</source>
        <translation>已打开 %1</translation>
    </message>
    <message>
        <source>Missing data: %1</source>
        <translation>缺失的数据：%1</translation>
    </message>
    <message>
        <source>Saved %1</source>
        <translation>已保存 %1</translation>
    </message>
    <message>
        <source>Open layout</source>
        <translation>打开页面布局</translation>
    </message>
    <message>
        <source>Save layout</source>
        <translation>保存页面布局</translation>
    </message>
    <message>
        <source>Writing…</source>
        <translation>正在写入…</translation>
    </message>
    <message>
        <source>Wrote %1</source>
        <translation>已写入 %1</translation>
    </message>
    <message>
        <source>Export PDF</source>
        <translation>导出 PDF</translation>
    </message>
    <message>
        <source>PDF (*.pdf)</source>
        <translation>PDF (*.pdf)</translation>
    </message>
    <message>
        <source>Resolution of rasters (dpi):</source>
        <translation>栅格分辨率（dpi）：</translation>
    </message>
    <message>
        <source>Export image</source>
        <translation>导出图片</translation>
    </message>
    <message>
        <source>Images (*.png *.tif *.tiff *.jpg)</source>
        <translation>图片 (*.png *.tif *.tiff *.jpg)</translation>
    </message>
    <message>
        <source>Resolution (dpi):</source>
        <translation>分辨率（dpi）：</translation>
    </message>
    <message>
        <source>Printed</source>
        <translation>已打印</translation>
    </message>
    <message>
        <source>Still writing the page; close when it is done.</source>
        <translation>页面仍在写入，请在完成后关闭。</translation>
    </message>
    <message>
        <source>Still opening the layout; close when it is done.</source>
        <translation>页面布局仍在打开，请在完成后关闭。</translation>
    </message>
</context>
<context>
    <name>HXViewerTools</name>
    <message>
        <source>Pan</source>
        <translation>平移</translation>
    </message>
    <message>
        <source>Zoom in</source>
        <translation>放大</translation>
    </message>
    <message>
        <source>Zoom out</source>
        <translation>缩小</translation>
    </message>
    <message>
        <source>Select</source>
        <translation>选择</translation>
    </message>
    <message>
        <source>Identify</source>
        <translation>识别</translation>
    </message>
    <message>
        <source>Add feature</source>
        <translation>添加要素</translation>
    </message>
    <message>
        <source>Delete selected features</source>
        <translation>删除所选要素</translation>
    </message>
    <message>
        <source>Merge selected features</source>
        <translation>合并所选要素</translation>
    </message>
    <message>
        <source>Edit attributes</source>
        <translation>编辑属性</translation>
    </message>
    <message>
        <source>Edit vertices</source>
        <translation>编辑节点</translation>
    </message>
</context>
<context>
    <name>HXViewerWindow</name>
    <message>
        <source>cannot read &apos;%1&apos;</source>
        <translation>无法读取“%1”</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is neither geographic nor projected</source>
        <translation>“%1”既不是地理坐标系也不是投影坐标系</translation>
    </message>
    <message>
        <source>HXMapViewer</source>
        <translation>HXMapViewer</translation>
    </message>
    <message>
        <source>Map tools</source>
        <translation>地图工具</translation>
    </message>
    <message>
        <source>Full extent</source>
        <translation>全图</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>刷新</translation>
    </message>
    <message>
        <source>&amp;File</source>
        <translation>文件(&amp;F)</translation>
    </message>
    <message>
        <source>&amp;Open…</source>
        <translation>打开(&amp;O)…</translation>
    </message>
    <message>
        <source>Open &amp;recent</source>
        <translation>最近打开(&amp;R)</translation>
    </message>
    <message>
        <source>&amp;Quit</source>
        <translation>退出(&amp;Q)</translation>
    </message>
    <message>
        <source>&amp;View</source>
        <translation>视图(&amp;V)</translation>
    </message>
    <message>
        <source>Zoom in	PgUp</source>
        <translation>放大	PgUp</translation>
    </message>
    <message>
        <source>Zoom out	PgDown</source>
        <translation>缩小	PgDown</translation>
    </message>
    <message>
        <source>&amp;Grid</source>
        <translation>格网(&amp;G)</translation>
    </message>
    <message>
        <source>Ctrl+G</source>
        <translation>Ctrl+G</translation>
    </message>
    <message>
        <source>Grid settings…</source>
        <translation>格网设置…</translation>
    </message>
    <message>
        <source>&amp;Map</source>
        <translation>地图(&amp;M)</translation>
    </message>
    <message>
        <source>Coordinate system…</source>
        <translation>坐标系…</translation>
    </message>
    <message>
        <source>Graphic elements</source>
        <translation>图元</translation>
    </message>
    <message>
        <source>Opened</source>
        <translation>已打开</translation>
    </message>
    <message>
        <source>Open map data</source>
        <translation>打开地图数据</translation>
    </message>
    <message>
        <source>Coordinate system</source>
        <translation>坐标系</translation>
    </message>
    <message>
        <source>Map coordinate system</source>
        <translation>地图坐标系</translation>
    </message>
    <message>
        <source>EPSG code, WKT or PROJ definition:</source>
        <translation>EPSG 代码、WKT 或 PROJ 定义：</translation>
    </message>
    <message>
        <source>Identify</source>
        <translation>识别</translation>
    </message>
    <message>
        <source>nothing found here</source>
        <translation>此处未找到要素</translation>
    </message>
</context>
</TS>
