<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en">
<context>
    <name>HODataFrame</name>
    <message>
        <source>No layers in this map</source>
        <translation>此地图中没有图层</translation>
    </message>
</context>
<context>
    <name>HOFileFunc</name>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation>无法打开“%1”：%2</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is too large to be a layout document</source>
        <translation>“%1”太大，不是布局文档</translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
</context>
<context>
    <name>HOLegendElement</name>
    <message>
        <source>Legend</source>
        <translation>图例</translation>
    </message>
</context>
<context>
    <name>HOPageLayoutView</name>
    <message>
        <source>layout version %1 cannot be written</source>
        <translation>无法写入版本 %1 的布局</translation>
    </message>
</context>
<context>
    <name>HOPageSetup</name>
    <message>
        <source>the page size must be positive</source>
        <translation>页面尺寸必须为正数</translation>
    </message>
    <message>
        <source>a page of %1 x %2 mm is larger than A0</source>
        <translation>%1 × %2 毫米的页面大于 A0</translation>
    </message>
</context>
<context>
    <name>HXColorBtn</name>
    <message>
        <source>Select color</source>
        <translation>选择颜色</translation>
    </message>
</context>
<context>
    <name>HXCombineFeatureMethodDialog</name>
    <message>
        <source>Combin feature</source>
        <translation>合并要素</translation>
    </message>
    <message>
        <source>Attribute inheritance mode</source>
        <translation>属性继承方式</translation>
    </message>
    <message>
        <source>Inherited maximum area</source>
        <translation>继承面积最大的要素</translation>
    </message>
    <message>
        <source>Inherits the specified feature</source>
        <translation>继承指定的要素</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>继续</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>Selected feature id</source>
        <translation>所选要素 ID</translation>
    </message>
</context>
<context>
    <name>HXCustomRenderDialog</name>
    <message>
        <source>Custom feature style</source>
        <translation>自定义要素样式</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>点</translation>
    </message>
    <message>
        <source>...</source>
        <translation>...</translation>
    </message>
    <message>
        <source>Polyline</source>
        <translation>线</translation>
    </message>
    <message>
        <source>Polygon</source>
        <translation>面</translation>
    </message>
</context>
<context>
    <name>HXLicense</name>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
    <message>
        <source>the licence is bound to machine %1</source>
        <translation>许可证已绑定到机器 %1</translation>
    </message>
    <message>
        <source>the licence expired on %1</source>
        <translation>许可证已于 %1 过期</translation>
    </message>
    <message>
        <source>Valid licence</source>
        <translation>许可证有效</translation>
    </message>
    <message>
        <source>No licence</source>
        <translation>无许可证</translation>
    </message>
    <message>
        <source>Not a licence file</source>
        <translation>不是许可证文件</translation>
    </message>
    <message>
        <source>Licence file of an unsupported version</source>
        <translation>许可证文件版本不受支持</translation>
    </message>
    <message>
        <source>Licence signature invalid</source>
        <translation>许可证签名无效</translation>
    </message>
    <message>
        <source>Licence bound to another machine</source>
        <translation>许可证已绑定到其他机器</translation>
    </message>
    <message>
        <source>Licence expired</source>
        <translation>许可证已过期</translation>
    </message>
    <message>
        <source>no licensee</source>
        <translation>缺少被许可人</translation>
    </message>
    <message>
        <source>no valid issue date</source>
        <translation>缺少有效的签发日期</translation>
    </message>
    <message>
        <source>no valid expiry date</source>
        <translation>缺少有效的到期日期</translation>
    </message>
    <message>
        <source>no feature list</source>
        <translation>缺少功能列表</translation>
    </message>
</context>
<context>
    <name>HXMapCanvas</name>
    <message>
        <source>Map</source>
        <translation>地图</translation>
    </message>
    <message>
        <source>Toggles pause refresh and continue</source>
        <translation>暂停或继续刷新地图</translation>
    </message>
    <message>
        <source>Line width</source>
        <translation>线宽</translation>
    </message>
    <message>
        <source>Please input line width(m):</source>
        <translation>请输入线宽（米）：</translation>
    </message>
    <message>
        <source>New path</source>
        <translation>新建路径</translation>
    </message>
    <message>
        <source>Input X and Y</source>
        <translation>输入 X、Y 坐标</translation>
    </message>
    <message>
        <source>Input DMS data</source>
        <translation>输入度分秒坐标</translation>
    </message>
    <message>
        <source>Cancel point</source>
        <translation>撤销节点</translation>
    </message>
    <message>
        <source>Please input line width</source>
        <translation>请输入线宽</translation>
    </message>
    <message>
        <source>Delete Element</source>
        <translation>删除图元</translation>
    </message>
    <message>
        <source>Custom symbol</source>
        <translation>自定义符号</translation>
    </message>
    <message>
        <source>Set map ruler and grid</source>
        <translation>设置地图标尺与格网</translation>
    </message>
</context>
<context>
    <name>HXMapWidget</name>
    <message>
        <source>No license</source>
        <translation>无许可证</translation>
    </message>
</context>
<context>
    <name>HXMessageBar</name>
    <message>
        <source>Remaining messages</source>
        <translation>剩余消息</translation>
    </message>
    <message>
        <source>Close all</source>
        <translation>全部关闭</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message numerus="yes">
        <source>%n more</source>
        <comment>unread messages</comment>
        <translation>
            <numerusform>还有 %n 条</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HXObjects::HODataSource</name>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation>无法打开“%1”：%2</translation>
    </message>
    <message>
        <source>it has no layer named &apos;%1&apos;</source>
        <translation>其中没有名为“%1”的图层</translation>
    </message>
</context>
<context>
    <name>HXObjects::HODigitizeTool</name>
    <message>
        <source>Add polygon</source>
        <translation>添加面</translation>
    </message>
    <message>
        <source>Add line</source>
        <translation>添加线</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOElementEditCommand</name>
    <message>
        <source>%1 1 element</source>
        <translation>%1 1 个图元</translation>
    </message>
    <message>
        <source>%1 %2 elements</source>
        <translation>%1 %2 个图元</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>删除</translation>
    </message>
    <message>
        <source>Cut</source>
        <translation>剪切</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>粘贴</translation>
    </message>
    <message>
        <source>Move</source>
        <translation>移动</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOElementEditor</name>
    <message>
        <source>Nothing to paste: the clipboard holds no elements and no WKT geometry</source>
        <translation>没有可粘贴的内容：剪贴板中既没有图元，也没有 WKT 几何</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOElementFile</name>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureEditor</name>
    <message>
        <source>Choose a feature layer to edit</source>
        <translation>请选择要编辑的要素图层</translation>
    </message>
    <message numerus="yes">
        <source>Delete %n feature(s)</source>
        <translation>
            <numerusform>删除 %n 个要素</numerusform>
        </translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureLayer</name>
    <message>
        <source>the layer cannot be edited: %1</source>
        <translation>该图层不可编辑：%1</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureLayerLoader</name>
    <message>
        <source>it holds no vector layer</source>
        <translation>其中没有矢量图层</translation>
    </message>
    <message>
        <source>cancelled</source>
        <translation>已取消</translation>
    </message>
    <message>
        <source>it is larger than the memory budget and is drawn from its source</source>
        <translation>它超出内存预算，直接从数据源绘制</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureMerge</name>
    <message>
        <source>Features of different geometry types cannot be merged</source>
        <translation>几何类型不同的要素不能合并</translation>
    </message>
    <message>
        <source>The merged geometry is not valid; nothing was merged</source>
        <translation>合并后的几何无效，未进行合并</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFeatureWriter</name>
    <message>
        <source>the table has no primary key</source>
        <translation>该表没有主键</translation>
    </message>
    <message>
        <source>it is read over the network or from an archive</source>
        <translation>它是通过网络或从压缩包中读取的</translation>
    </message>
    <message>
        <source>the %1 format cannot be edited</source>
        <translation>%1 格式不支持编辑</translation>
    </message>
    <message>
        <source>&apos;%1&apos; is read-only</source>
        <translation>“%1”是只读的</translation>
    </message>
    <message>
        <source>the folder &apos;%1&apos; is read-only</source>
        <translation>文件夹“%1”是只读的</translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos; for writing: %2</source>
        <translation>无法以写入方式打开“%1”：%2</translation>
    </message>
    <message>
        <source>cannot delete feature %1: %2</source>
        <translation>无法删除要素 %1：%2</translation>
    </message>
    <message>
        <source>cannot write the feature: %1</source>
        <translation>无法写入该要素：%1</translation>
    </message>
    <message>
        <source>feature %1 no longer exists</source>
        <translation>要素 %1 已不存在</translation>
    </message>
    <message>
        <source>feature %1 was changed by someone else since it was read</source>
        <translation>要素 %1 在读取后已被他人修改</translation>
    </message>
    <message>
        <source>the geometry is not valid (it crosses itself or has too few points)</source>
        <translation>几何无效（自相交或点数过少）</translation>
    </message>
    <message>
        <source>the layer has no field &apos;%1&apos;</source>
        <translation>图层中没有字段“%1”</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOFileCheck</name>
    <message>
        <source>a loop of symbolic links</source>
        <translation>符号链接形成了循环</translation>
    </message>
    <message>
        <source>permission denied</source>
        <translation>权限不足</translation>
    </message>
    <message>
        <source>a symbolic link to a missing file</source>
        <translation>符号链接指向的文件不存在</translation>
    </message>
    <message>
        <source>no such file</source>
        <translation>文件不存在</translation>
    </message>
    <message>
        <source>not a regular file</source>
        <translation>不是普通文件</translation>
    </message>
    <message>
        <source>its companion &apos;%1&apos; is not a regular file</source>
        <translation>其附属文件“%1”不是普通文件</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOGdalOpener</name>
    <message>
        <source>not a recognised vector or raster format</source>
        <translation>无法识别的矢量或栅格格式</translation>
    </message>
    <message>
        <source>its blocks of %1 x %2 pixels are too large to read</source>
        <translation>其 %1 × %2 像素的数据块过大，无法读取</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOLayoutDocument</name>
    <message>
        <source>an element of type &apos;%1&apos; has no valid bounds</source>
        <translation>类型为“%1”的元素没有有效的范围</translation>
    </message>
    <message>
        <source>Missing data:
%1</source>
        <translation>缺失的数据：
%1</translation>
    </message>
    <message>
        <source>unknown element type &apos;%1&apos;</source>
        <translation>未知的元素类型“%1”</translation>
    </message>
    <message>
        <source>cannot read the image &apos;%1&apos;</source>
        <translation>无法读取图片“%1”</translation>
    </message>
    <message>
        <source>not a layout document (%1 at byte %2)</source>
        <translation>不是布局文档（第 %2 字节处：%1）</translation>
    </message>
    <message>
        <source>not a layout document</source>
        <translation>不是布局文档</translation>
    </message>
    <message>
        <source>layout document version %1 is not supported (this program reads version %2)</source>
        <translation>不支持版本 %1 的布局文档（本程序读取版本 %2）</translation>
    </message>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation>无法打开“%1”：%2</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOPageExporter</name>
    <message>
        <source>cannot write &apos;%1&apos;</source>
        <translation>无法写入“%1”</translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>a resolution of %1 dpi is outside 1 to %2 dpi</source>
        <translation>分辨率 %1 dpi 超出 1 至 %2 dpi 的范围</translation>
    </message>
    <message>
        <source>a %1 x %2 pixel image is too large; choose a lower resolution</source>
        <translation>%1 × %2 像素的图像过大，请选择较低的分辨率</translation>
    </message>
    <message>
        <source>not enough memory for a %1 x %2 pixel image</source>
        <translation>内存不足，无法生成 %1 × %2 像素的图像</translation>
    </message>
</context>
<context>
    <name>HXObjects::HORasterInfo</name>
    <message>
        <source>its georeferencing is not a finite number</source>
        <translation>其地理参考不是有限数值</translation>
    </message>
    <message>
        <source>its pixel size is zero</source>
        <translation>其像元大小为零</translation>
    </message>
    <message>
        <source>its georeferencing puts it beyond any coordinate system</source>
        <translation>其地理参考超出了任何坐标系的范围</translation>
    </message>
</context>
<context>
    <name>HXObjects::HORasterLayerLoader</name>
    <message>
        <source>it holds no raster band</source>
        <translation>其中没有栅格波段</translation>
    </message>
    <message>
        <source>its pixels cannot be read: %1</source>
        <translation>无法读取其像元：%1</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOShapefileWriter</name>
    <message>
        <source>cannot write beside &apos;%1&apos;: %2</source>
        <translation>无法在“%1”旁写入文件：%2</translation>
    </message>
    <message>
        <source>cannot write beside &apos;%1&apos; (is the disk full?)</source>
        <translation>无法在“%1”旁写入文件（磁盘是否已满？）</translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos;: %2</source>
        <translation>无法写入“%1”：%2</translation>
    </message>
    <message>
        <source>cannot write &apos;%1&apos; to disk</source>
        <translation>无法将“%1”写入磁盘</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolAddControlPoint</name>
    <message>
        <source>Add control point %1</source>
        <translation>添加控制点 %1</translation>
    </message>
    <message>
        <source>Cancel control point %1</source>
        <translation>撤销控制点 %1</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolAddFeature</name>
    <message>
        <source>Add feature</source>
        <translation>添加要素</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolDoubleLine</name>
    <message>
        <source>Add double line</source>
        <translation>添加双线</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolEditVertex</name>
    <message>
        <source>Feature %1 no longer exists</source>
        <translation>要素 %1 已不存在</translation>
    </message>
    <message>
        <source>Edit vertices</source>
        <translation>编辑节点</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolMeasureArea</name>
    <message>
        <source>Area: %1, perimeter: %2</source>
        <translation>面积：%1，周长：%2</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolMeasureDistance</name>
    <message>
        <source>Length: %1</source>
        <translation>长度：%1</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolMergeFeature</name>
    <message>
        <source>Select two or more features of one layer to merge them</source>
        <translation>请在同一图层中选择两个或更多要素进行合并</translation>
    </message>
    <message>
        <source>Feature %1 no longer exists</source>
        <translation>要素 %1 已不存在</translation>
    </message>
    <message>
        <source>Feature %1 is not among the selected features</source>
        <translation>要素 %1 不在所选要素中</translation>
    </message>
    <message>
        <source>Merge %1 features</source>
        <translation>合并 %1 个要素</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOToolSingleSelect</name>
    <message>
        <source>Move vertex</source>
        <translation>移动节点</translation>
    </message>
</context>
<context>
    <name>HXObjects::HOTransactionWriter</name>
    <message>
        <source>the layer &apos;%1&apos; is gone from the source</source>
        <translation>数据源中已没有图层“%1”</translation>
    </message>
    <message>
        <source>cannot start a transaction: %1</source>
        <translation>无法开始事务：%1</translation>
    </message>
    <message>
        <source>cannot commit the edit: %1</source>
        <translation>无法提交编辑：%1</translation>
    </message>
</context>
<context>
    <name>HXStatusBarCoordinatesWidget</name>
    <message>
        <source>m</source>
        <translation>米</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>英尺</translation>
    </message>
    <message>
        <source>Degree</source>
        <translation>度</translation>
    </message>
    <message>
        <source>Unknown unit</source>
        <translation>未知单位</translation>
    </message>
    <message>
        <source>Nautical mile</source>
        <translation>海里</translation>
    </message>
    <message>
        <source>Kilometer</source>
        <translation>千米</translation>
    </message>
    <message>
        <source>Yard</source>
        <translation>码</translation>
    </message>
    <message>
        <source>Mile</source>
        <translation>英里</translation>
    </message>
    <message>
        <source>unknown unit</source>
        <translation>未知单位</translation>
    </message>
    <message>
        <source>Current map display unit</source>
        <translation>当前地图显示单位</translation>
    </message>
    <message>
        <source>Current map coordinate system (longitude, latitude or east, north)</source>
        <translation>当前地图坐标（经度、纬度或东坐标、北坐标）</translation>
    </message>
    <message>
        <source>Shows the map coordinates at the current cursor position. The display is continuously updated as the mouse is moved. It also allows editing to set the canvas center to a given position. The format is longitude,latitude or east,north</source>
        <translation>显示当前光标位置的地图坐标，随鼠标移动实时更新。也可在此输入坐标，将地图中心移到该位置。格式为“经度,纬度”或“东坐标,北坐标”</translation>
    </message>
    <message>
        <source>Toggle extents and mouse position display</source>
        <translation>切换显示地图范围或鼠标位置</translation>
    </message>
    <message>
        <source>Map coordinates for the current view extents</source>
        <translation>当前视图范围的地图坐标</translation>
    </message>
    <message>
        <source>Map coordinates at mouse cursor position</source>
        <translation>鼠标光标位置的地图坐标</translation>
    </message>
    <message>
        <source>Pixel</source>
        <translation>像素</translation>
    </message>
</context>
<context>
    <name>HXStatusBarScaleWidget</name>
    <message>
        <source>Scale</source>
        <translation>比例尺</translation>
    </message>
    <message>
        <source>Current map scale</source>
        <translation>当前地图比例尺</translation>
    </message>
    <message>
        <source>Displays the current map scale</source>
        <translation>显示当前地图比例尺</translation>
    </message>
    <message>
        <source>Current map scale (x:y)</source>
        <translation>当前地图比例尺（x:y）</translation>
    </message>
</context>
<context>
    <name>HXStyleLibrary</name>
    <message>
        <source>cannot open &apos;%1&apos;: %2</source>
        <translation>无法打开“%1”：%2</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: %2</source>
        <translation>无法读取“%1”：%2</translation>
    </message>
    <message>
        <source>cannot read &apos;%1&apos;: no list of symbols</source>
        <translation>无法读取“%1”：其中没有符号列表</translation>
    </message>
</context>
<context>
    <name>HXStylePickerDialog</name>
    <message>
        <source>Circle</source>
        <translation>圆形</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>正方形</translation>
    </message>
    <message>
        <source>Triangle</source>
        <translation>三角形</translation>
    </message>
    <message>
        <source>Diamond</source>
        <translation>菱形</translation>
    </message>
    <message>
        <source>Cross</source>
        <translation>十字</translation>
    </message>
    <message>
        <source>Star</source>
        <translation>星形</translation>
    </message>
    <message>
        <source>Solid</source>
        <translation>实线</translation>
    </message>
    <message>
        <source>Dashed</source>
        <translation>虚线</translation>
    </message>
    <message>
        <source>Dotted</source>
        <translation>点线</translation>
    </message>
    <message>
        <source>Dash-dot</source>
        <translation>点划线</translation>
    </message>
    <message>
        <source>No fill</source>
        <translation>无填充</translation>
    </message>
    <message>
        <source>Horizontal hatch</source>
        <translation>水平线填充</translation>
    </message>
    <message>
        <source>Vertical hatch</source>
        <translation>垂直线填充</translation>
    </message>
    <message>
        <source>Cross hatch</source>
        <translation>十字线填充</translation>
    </message>
    <message>
        <source>Diagonal hatch</source>
        <translation>斜线填充</translation>
    </message>
    <message>
        <source>Reverse diagonal hatch</source>
        <translation>反斜线填充</translation>
    </message>
    <message>
        <source>Diagonal cross hatch</source>
        <translation>交叉斜线填充</translation>
    </message>
    <message>
        <source> px</source>
        <translation> 像素</translation>
    </message>
    <message>
        <source>Select marker symbol</source>
        <translation>选择点符号</translation>
    </message>
    <message>
        <source>Select line symbol</source>
        <translation>选择线符号</translation>
    </message>
    <message>
        <source>Select fill symbol</source>
        <translation>选择填充符号</translation>
    </message>
    <message>
        <source>Properties</source>
        <translation>属性</translation>
    </message>
    <message>
        <source> %</source>
        <translation> %</translation>
    </message>
    <message>
        <source>Shape:</source>
        <translation>形状：</translation>
    </message>
    <message>
        <source>Dash:</source>
        <translation>线型：</translation>
    </message>
    <message>
        <source>Fill:</source>
        <translation>填充：</translation>
    </message>
    <message>
        <source>Width:</source>
        <translation>宽度：</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>大小：</translation>
    </message>
    <message>
        <source>Casing color:</source>
        <translation>边线颜色：</translation>
    </message>
    <message>
        <source>Outline color:</source>
        <translation>轮廓颜色：</translation>
    </message>
    <message>
        <source>Casing width:</source>
        <translation>边线宽度：</translation>
    </message>
    <message>
        <source>Outline width:</source>
        <translation>轮廓宽度：</translation>
    </message>
    <message>
        <source>Color:</source>
        <translation>颜色：</translation>
    </message>
    <message>
        <source>Opacity:</source>
        <translation>不透明度：</translation>
    </message>
    <message>
        <source>Preview:</source>
        <translation>预览：</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
<context>
    <name>HxInputDMSDialog</name>
    <message>
        <source>Enter Coordinate DMS</source>
        <translation>输入度分秒坐标</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Degree&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;度&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Minute&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;分&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Second&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;秒&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Longitude:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;经度：&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Latidude:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;纬度：&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>HxInputDataDialog</name>
    <message>
        <source>Enter Coordinates</source>
        <translation>输入坐标</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;X:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;X：&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
    <message>
        <source>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Y:&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</source>
        <translation>&lt;html&gt;&lt;head/&gt;&lt;body&gt;&lt;p&gt;Y：&lt;/p&gt;&lt;/body&gt;&lt;/html&gt;</translation>
    </message>
</context>
<context>
    <name>HxRulerAndGridSettingsDialog</name>
    <message>
        <source>Map ruler and grid settings</source>
        <translation>地图标尺与格网设置</translation>
    </message>
    <message>
        <source>KM grid ruler</source>
        <translation>公里格网标尺</translation>
    </message>
    <message>
        <source>Draw ruler</source>
        <translation>绘制标尺</translation>
    </message>
    <message>
        <source>Ruler tick mark width:</source>
        <translation>标尺刻度线宽：</translation>
    </message>
    <message>
        <source>Pixel</source>
        <translation>像素</translation>
    </message>
    <message>
        <source>Ruler tick mark color:</source>
        <translation>标尺刻度颜色：</translation>
    </message>
    <message>
        <source>Ruler label font height:</source>
        <translation>标尺注记字高：</translation>
    </message>
    <message>
        <source>Ruler label font width:</source>
        <translation>标尺注记字宽：</translation>
    </message>
    <message>
        <source>Ruler label font color:</source>
        <translation>标尺注记颜色：</translation>
    </message>
    <message>
        <source>KM grid</source>
        <translation>公里格网</translation>
    </message>
    <message>
        <source>Draw grid</source>
        <translation>绘制格网</translation>
    </message>
    <message>
        <source>Grid line width:</source>
        <translation>格网线宽：</translation>
    </message>
    <message>
        <source>Grid line color:</source>
        <translation>格网线颜色：</translation>
    </message>
    <message>
        <source>X start position:</source>
        <translation>X 起始位置：</translation>
    </message>
    <message>
        <source>Map unit</source>
        <translation>地图单位</translation>
    </message>
    <message>
        <source>Y start position:</source>
        <translation>Y 起始位置：</translation>
    </message>
    <message>
        <source>Manually set grid spacing</source>
        <translation>手动设置格网间距</translation>
    </message>
    <message>
        <source>X distances:</source>
        <translation>X 间距：</translation>
    </message>
    <message>
        <source>Y distances:</source>
        <translation>Y 间距：</translation>
    </message>
    <message>
        <source>The type of grid spacing is automatically calculated</source>
        <translation>自动计算格网间距的方式</translation>
    </message>
    <message>
        <source>Calculate the spacing according to the scale</source>
        <translation>按比例尺计算间距</translation>
    </message>
    <message>
        <source>Calculate the spacing according to the scale unit</source>
        <translation>按比例尺单位计算间距</translation>
    </message>
    <message>
        <source>Longitude and latitude grid ruler</source>
        <translation>经纬网标尺</translation>
    </message>
    <message>
        <source>Longitude and latitude grid</source>
        <translation>经纬网</translation>
    </message>
    <message>
        <source>Longitude start position:</source>
        <translation>经度起始位置：</translation>
    </message>
    <message>
        <source>°</source>
        <translation>°</translation>
    </message>
    <message>
        <source>&apos;</source>
        <translation>′</translation>
    </message>
    <message>
        <source>&quot;</source>
        <translation>″</translation>
    </message>
    <message>
        <source>Latitude start position:</source>
        <translation>纬度起始位置：</translation>
    </message>
    <message>
        <source>Longitude distances:</source>
        <translation>经度间距：</translation>
    </message>
    <message>
        <source>Latitude distances:</source>
        <translation>纬度间距：</translation>
    </message>
    <message>
        <source>Specify map scale</source>
        <translation>指定地图比例尺</translation>
    </message>
    <message>
        <source>Map scale:</source>
        <translation>地图比例尺：</translation>
    </message>
    <message>
        <source>1</source>
        <translation>1</translation>
    </message>
    <message>
        <source>:</source>
        <translation>:</translation>
    </message>
    <message>
        <source>If the current map scale is greater than or equal to the specified scale, the latitude and longitude grid is automatically converted to the kilometer grid.</source>
        <translation>当前地图比例尺大于或等于指定比例尺时，经纬网自动转换为公里格网。</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
</context>
</TS>
