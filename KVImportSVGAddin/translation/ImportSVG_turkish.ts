<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="tr_TR" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>SVG içe aktarma</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Kip</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>Blok olarak &amp;ekle</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Metin düğümlerini metin öğelerine patlat </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>&amp;Toplu işleme</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>SVG dosyası</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Ad:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Gözat...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Yol:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Tasarım modeli seçin</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Konum</translation>
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
        <translation>&amp;Sonra belirt</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Ölçek</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Faktör:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>S&amp;onra belirt</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Döndürme</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>&amp;Açı:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Sonra be&amp;lirt</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>SVG dosyası birimleri</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>A&amp;na birimler</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>Alt &amp;birimler</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Çizimi şuna dönüştür</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>Bi&amp;rimler:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Birimsiz</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>İnç</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Fit</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Mil</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Milimetre</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Santimetre</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Metre</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Kilometre</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Mikroinç</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Binde bir inç</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Yarda</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angström</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanometre</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Mikron</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Desimetre</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Hektometre</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigametre</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronomik</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parsek</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Faktör:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>İptal</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Tamam</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Yardım</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>SVG dosyaları</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Kaynak yolu:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Hedef yolu:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Gö&amp;zat...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dosyalar</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Tümünü &amp;seç</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>Genel &amp;ayarları kullan</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Durdur</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Başlat</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Kapat</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Klasör belirtin</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Dosya aç</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Ölçeklenebilir vektör grafikleri (*.svg)</translation>
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
        <translation>Bu çizim bir SVG dosyası olmadığı için yüklenemiyor.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Toplu işleme</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>Belirtilen yolda SVG dosyası bulunamadı.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Toplu işlemeyi durdurmak istiyor musunuz?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Toplu işleme tamamlandı.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Tasarım modeli</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Dönüştürme birimleri</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Birim değeri</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Varsayılan</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Ana birimler</translation>
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
        <translation>SVG dosyasını blok olarak ekler: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>SVG içe aktar</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>SVG içe aktar</translation>
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
        <translation>XML dosyası açılamıyor: %1</translation>
    </message>
</context>
</TS>
