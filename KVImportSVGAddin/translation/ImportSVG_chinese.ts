<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="zh_TW" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>SVG 匯入</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>模式</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>作為圖塊插入(&amp;I)</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>將文字節點分解為文字元素(&amp;T) </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>批次處理(&amp;B)</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>SVG 檔案</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>名稱：</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>瀏覽(&amp;W)...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>路徑：</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>選取設計模型</translation>
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
        <translation>稍後指定(&amp;S)</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>比例</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>係數(&amp;F)：</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>稍後指定(&amp;L)</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>旋轉</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>角度(&amp;A)：</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>稍後指定(&amp;E)</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>SVG 檔案單位</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>主單位(&amp;M)</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>子單位(&amp;U)</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>圖面轉換為</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>單位(&amp;N)：</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>無單位</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>英吋</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>英呎</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>英哩</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>公釐</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>公分</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>公尺</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>公里</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>微英吋</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>密耳</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>碼</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>埃</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>奈米</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>微米</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>公寸</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>百公尺</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>百萬公里</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>天文單位</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>秒差距</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>係數：</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>取消</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>確定</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>說明</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>SVG 檔案</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>來源路徑：</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>目標路徑：</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>瀏覽(&amp;R)...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>檔案</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>全選(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>使用整體設定(&amp;G)</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>中止</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>開始</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>關閉</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>指定資料夾</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>開啟檔案</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>可縮放向量圖形 (*.svg)</translation>
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
        <translation>無法載入此圖面，因為它不是 SVG 檔案。</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>批次處理</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>在指定的路徑中找不到 SVG 檔案。</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>是否要中止批次處理？</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>批次處理已完成。</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>設計模型</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>轉換單位</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>單位值</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>預設</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>主單位</translation>
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
        <translation>將 SVG 檔案作為圖塊插入：IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>匯入 SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>匯入 SVG</translation>
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
        <translation>無法開啟 XML 檔案：%1</translation>
    </message>
</context>
</TS>
