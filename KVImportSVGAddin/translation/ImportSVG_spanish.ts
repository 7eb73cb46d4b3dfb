<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="es_ES" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>Importación de SVG</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modo</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>&amp;Insertar como bloque</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Descomponer nodos de texto en elementos de texto </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>&amp;Procesamiento por lotes</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>Archivo SVG</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Nombre:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Examinar...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Ruta:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Seleccionar un modelo de diseño</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posición</translation>
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
        <translation>Indicar de&amp;spués</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Escala</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Factor:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Indi&amp;car después</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotación</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>Án&amp;gulo:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Indica&amp;r después</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Unidades del archivo SVG</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>Unidades &amp;maestras</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>Su&amp;bunidades</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Convertir dibujo a</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>&amp;Unidades:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Sin unidad</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Pulgadas</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Pies</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Millas</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Milímetros</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Centímetros</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Metros</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Kilómetros</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Micropulgadas</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Milésimas</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Yardas</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angstroms</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanómetros</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Micras</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Decímetros</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Hectómetros</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigámetros</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronómicas</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parsecs</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Factor:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>Aceptar</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ayuda</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>Archivos SVG</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Ruta de origen:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Ruta de destino:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Exami&amp;nar...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Archivos</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Seleccionar &amp;todo</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>Usar configuración &amp;global</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Detener</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Iniciar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Cerrar</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Indicar carpeta</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Abrir archivo</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Gráficos vectoriales escalables (*.svg)</translation>
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
        <translation>No se puede cargar este dibujo porque no es un archivo SVG.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Procesamiento por lotes</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>No se encontró ningún archivo SVG en la ruta indicada.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>¿Desea detener el procesamiento por lotes?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Procesamiento por lotes finalizado.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Modelo de diseño</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Unidades de conversión</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Valor de la unidad</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Predeterminado</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Unidades maestras</translation>
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
        <translation>Inserta un archivo SVG como bloque: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>Importar SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>Importar SVG</translation>
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
        <translation>No se puede abrir el archivo XML: %1</translation>
    </message>
</context>
</TS>
