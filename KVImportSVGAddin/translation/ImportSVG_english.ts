<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>SVG Import</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>&amp;Insert as Block</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>Explode te&amp;xt node to text element </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>&amp;Batch Processing</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>SVG file</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Name :</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>Bro&amp;wse...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Path :</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Select a design model</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>&amp;X :</source>
        <translation>&amp;X :</translation>
    </message>
    <message>
        <source>&amp;Y :</source>
        <translation>&amp;Y :</translation>
    </message>
    <message>
        <source>&amp;Z :</source>
        <translation>&amp;Z :</translation>
    </message>
    <message>
        <source>&amp;Specify later</source>
        <translation>&amp;Specify later</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Scale</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Factor :</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Specify &amp;later</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>&amp;Angle :</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Sp&amp;ecify later</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>SVG file units</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>&amp;Master units</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>S&amp;ub units</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Convert drawing to</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>Uni&amp;ts :</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Unitless</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Inches</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Feet</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Miles</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Milimeters</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Centimeters</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Meters</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Kilometers</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Microinches</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Mils</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Yards</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angstroms</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanometers</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Microns</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Decimeters</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Hectometers</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigameters</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronomical</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parsecs</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Factor :</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Help</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>SVG files</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Source Path :</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Destination Path :</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Brow&amp;se...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Files</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Select &amp;all</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>&amp;Use global settings</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abort</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Close</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Specify Folder</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Open File</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Scalable Vector Graphics (*.svg)</translation>
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
        <translation>This Drawing cannot be loaded because it is not a SVG file.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Batch Processing</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>No SVG file Found in the specified path.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Do you want to stop Batch Processing?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Batch Processing finished.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Design Model</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Conversion units</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Unit Value</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Default</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Master units</translation>
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
        <translation>Inserts SVG file as block : IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>Import SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>ImportSVG</translation>
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
        <translation>Cannot open xml file: %1</translation>
    </message>
</context>
</TS>
