<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ja_JP" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>SVG の読み込み</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>モード</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>ブロックとして挿入(&amp;I)</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>テキスト ノードをテキスト要素に分解(&amp;T) </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>バッチ処理(&amp;B)</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>SVG ファイル</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>名前:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>参照(&amp;W)...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>パス:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>設計モデルを選択</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>位置</translation>
    </message>
    <message>
        <source>&amp;X :</source>
        <translation>&amp;X:</translation>
    </message>
    <message>
        <source>&amp;Y :</source>
        <translation>&amp;Y:</translation>
    </message>
    <message>
        <source>&amp;Z :</source>
        <translation>&amp;Z:</translation>
    </message>
    <message>
        <source>&amp;Specify later</source>
        <translation>後で指定(&amp;S)</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>尺度</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>係数(&amp;F):</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>後で指定(&amp;L)</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>回転</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>角度(&amp;A):</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>後で指定(&amp;E)</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>SVG ファイルの単位</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>マスター単位(&amp;M)</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>サブ単位(&amp;U)</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>図面の変換後の単位</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>単位(&amp;N):</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>単位なし</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>インチ</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>フィート</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>マイル</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>ミリメートル</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>センチメートル</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>メートル</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>キロメートル</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>マイクロインチ</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>ミル</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>ヤード</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>オングストローム</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>ナノメートル</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>ミクロン</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>デシメートル</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>ヘクトメートル</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>ギガメートル</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>天文単位</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>パーセク</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>係数:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>ヘルプ</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>SVG ファイル</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>変換元パス:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>保存先パス:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>参照(&amp;R)...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>ファイル</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>すべて選択(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>グローバル設定を使用(&amp;G)</translation>
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
        <translation>閉じる</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>フォルダーを指定</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>ファイルを開く</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>スケーラブル ベクター グラフィックス (*.svg)</translation>
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
        <translation>この図面は SVG ファイルではないため、読み込めません。</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>バッチ処理</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>指定したパスに SVG ファイルが見つかりません。</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>バッチ処理を中止しますか?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>バッチ処理が完了しました。</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>設計モデル</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>変換単位</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>単位の値</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>既定</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>マスター単位</translation>
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
        <translation>SVG ファイルをブロックとして挿入: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>SVG の読み込み</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>SVG の読み込み</translation>
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
        <translation>XML ファイルを開けません: %1</translation>
    </message>
</context>
</TS>
