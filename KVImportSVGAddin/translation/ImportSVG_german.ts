<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>SVG-Import</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modus</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>Als &amp;Block einfügen</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Textknoten in Textelemente auflösen </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>&amp;Stapelverarbeitung</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>SVG-Datei</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Name:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Durchsuchen...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Pfad:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Konstruktionsmodell wählen</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
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
        <translation>Später &amp;angeben</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Skalierung</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Faktor:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Später an&amp;geben</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Drehung</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>&amp;Winkel:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>S&amp;päter angeben</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Einheiten der SVG-Datei</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>&amp;Haupteinheiten</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>&amp;Untereinheiten</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Zeichnung umrechnen in</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>&amp;Einheiten:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Ohne Einheit</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Zoll</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Fuß</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Meilen</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Millimeter</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Zentimeter</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Meter</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Kilometer</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Mikrozoll</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Tausendstelzoll</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Yard</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angström</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanometer</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Mikrometer</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Dezimeter</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Hektometer</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigameter</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronomisch</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parsec</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Faktor:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Hilfe</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>SVG-Dateien</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Quellpfad:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Zielpfad:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Du&amp;rchsuchen...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Dateien</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Alle auswählen</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>&amp;Globale Einstellungen verwenden</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Stoppen</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Starten</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Ordner angeben</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Datei öffnen</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Skalierbare Vektorgrafiken (*.svg)</translation>
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
        <translation>Diese Zeichnung kann nicht geladen werden, da sie keine SVG-Datei ist.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Stapelverarbeitung</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>Im angegebenen Pfad wurde keine SVG-Datei gefunden.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Möchten Sie die Stapelverarbeitung stoppen?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Die Stapelverarbeitung ist abgeschlossen.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Konstruktionsmodell</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Umrechnungseinheiten</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Einheitenwert</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Haupteinheiten</translation>
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
        <translation>Fügt eine SVG-Datei als Block ein: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>SVG importieren</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>SVG importieren</translation>
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
        <translation>XML-Datei kann nicht geöffnet werden: %1</translation>
    </message>
</context>
</TS>
