<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_CN" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>SVG 导入</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>模式</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>作为块插入(&amp;I)</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>将文本节点分解为文本元素(&amp;T) </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>批处理(&amp;B)</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>SVG 文件</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>名称：</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>浏览(&amp;W)...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>路径：</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>选择设计模型</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>&amp;X :</source>
        <translation>&amp;X：</translation>
    </message>
    <message>
        <source>&amp;Y :</source>
        <translation>&amp;Y：</translation>
    </message>
    <message>
        <source>&amp;Z :</source>
        <translation>&amp;Z：</translation>
    </message>
    <message>
        <source>&amp;Specify later</source>
        <translation>稍后指定(&amp;S)</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>比例</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>系数(&amp;F)：</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>稍后指定(&amp;L)</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>旋转</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>角度(&amp;A)：</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>稍后指定(&amp;E)</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>SVG 文件单位</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>主单位(&amp;M)</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>子单位(&amp;U)</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>图形转换为</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>单位(&amp;N)：</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>无单位</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>英寸</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>英尺</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>英里</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>毫米</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>厘米</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>米</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>公里</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>微英寸</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>密耳</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>码</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>埃</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>纳米</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>微米</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>分米</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>百米</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>百万公里</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>天文单位</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>秒差距</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>系数：</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>确定</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>帮助</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>SVG 文件</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>源路径：</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>目标路径：</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>浏览(&amp;R)...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>文件</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>全部选择(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>使用全局设置(&amp;G)</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>开始</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>关闭</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>指定文件夹</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>打开文件</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>可缩放矢量图形 (*.svg)</translation>
    </message>
    <message>
        <source>svg</source>
        <translation>svg</translation>
    </message>
    <message>
        <source>Korvane</source>
        <translation>Korvane</translation>
    </message>
    <message>
        <source>This Drawing cannot be loaded because it is not a SVG file.</source>
        <translation>无法加载此图形，因为它不是 SVG 文件。</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>批处理</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>在指定的路径中未找到 SVG 文件。</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>是否要中止批处理？</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>批处理已完成。</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>设计模型</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>转换单位</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>单位值</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>默认</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>主单位</translation>
    </message>
</context>
<context>
    <name>QObject</name>
    <message>
        <source>IMPORTSVG</source>
        <translation>IMPORTSVG</translation>
    </message>
    <message>
        <source>^C^CIMPORTSVG</source>
        <translation>^C^CIMPORTSVG</translation>
    </message>
    <message>
        <source>Inserts SVG file as block : IMPORTSVG</source>
        <translation>将 SVG 文件作为块插入：IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>导入 SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>导入 SVG</translation>
    </message>
    <message>
        <source>SVG</source>
        <translation>SVG</translation>
    </message>
    <message>
        <source>&amp;SVG</source>
        <translation>&amp;SVG</translation>
    </message>
    <message>
        <source>Cannot open xml file: %1</source>
        <translation>无法打开 XML 文件：%1</translation>
    </message>
</context>
</TS>
