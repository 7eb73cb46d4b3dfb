<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="cs_CZ" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>Import SVG</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Režim</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>&amp;Vložit jako blok</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Rozložit textové uzly na textové prvky </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>&amp;Dávkové zpracování</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>Soubor SVG</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Název:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Procházet...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Cesta:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Vyberte návrhový model</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Poloha</translation>
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
        <translation>&amp;Určit později</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Měřítko</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Faktor:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Určit pozdě&amp;ji</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Natočení</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>Úh&amp;el:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Urči&amp;t později</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Jednotky souboru SVG</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>&amp;Hlavní jednotky</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>Podjed&amp;notky</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Převést výkres na</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>Jednot&amp;ky:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Bez jednotek</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Palce</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Stopy</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Míle</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Milimetry</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Centimetry</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Metry</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Kilometry</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Mikropalce</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Tisíciny palce</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Yardy</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angströmy</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanometry</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Mikrony</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Decimetry</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Hektometry</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigametry</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronomické</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parseky</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Faktor:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Storno</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Nápověda</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>Soubory SVG</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Zdrojová cesta:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Cílová cesta:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Pro&amp;cházet...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Soubory</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Vybrat vš&amp;e</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>Použít &amp;globální nastavení</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Přerušit</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Spustit</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zavřít</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Určit složku</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Otevřít soubor</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Škálovatelná vektorová grafika (*.svg)</translation>
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
        <translation>Tento výkres nelze načíst, protože to není soubor SVG.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Dávkové zpracování</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>V zadané cestě nebyl nalezen žádný soubor SVG.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Chcete přerušit dávkové zpracování?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Dávkové zpracování je dokončeno.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Návrhový model</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Jednotky převodu</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Hodnota jednotky</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Výchozí</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Hlavní jednotky</translation>
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
        <translation>Vloží soubor SVG jako blok: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>Importovat SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>Importovat SVG</translation>
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
        <translation>Nelze otevřít soubor XML: %1</translation>
    </message>
</context>
</TS>
