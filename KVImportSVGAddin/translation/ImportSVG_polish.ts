<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pl_PL" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>Import SVG</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Tryb</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>W&amp;staw jako blok</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Rozbij węzły tekstu na elementy tekstowe </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>Przetwarzanie &amp;wsadowe</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>Plik SVG</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Nazwa:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Przeglądaj...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Ścieżka:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Wybierz model projektowy</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Położenie</translation>
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
        <translation>&amp;Określ później</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skala</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>Współ&amp;czynnik:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>O&amp;kreśl później</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Obrót</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>Ką&amp;t:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Określ późn&amp;iej</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Jednostki pliku SVG</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>Jednostki &amp;główne</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>Po&amp;djednostki</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Konwertuj rysunek na</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>&amp;Jednostki:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Bez jednostek</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Cale</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Stopy</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Mile</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Milimetry</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Centymetry</translation>
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
        <translation>Mikrocale</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Tysięczne cala</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Jardy</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angstremy</translation>
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
        <translation>Decymetry</translation>
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
        <translation>Astronomiczne</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parseki</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Współczynnik:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Anuluj</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Pomoc</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>Pliki SVG</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Ścieżka źródłowa:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Ścieżka docelowa:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Prz&amp;eglądaj...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Pliki</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Z&amp;aznacz wszystko</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>&amp;Użyj ustawień globalnych</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Przerwij</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Rozpocznij</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Zamknij</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Określ folder</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Otwórz plik</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Skalowalna grafika wektorowa (*.svg)</translation>
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
        <translation>Nie można wczytać tego rysunku, ponieważ nie jest to plik SVG.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Przetwarzanie wsadowe</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>W podanej ścieżce nie znaleziono pliku SVG.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Czy przerwać przetwarzanie wsadowe?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Przetwarzanie wsadowe zakończone.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Model projektowy</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Jednostki konwersji</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Wartość jednostki</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Domyślny</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Jednostki główne</translation>
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
        <translation>Wstawia plik SVG jako blok: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>Importuj SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>Importuj SVG</translation>
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
        <translation>Nie można otworzyć pliku XML: %1</translation>
    </message>
</context>
</TS>
