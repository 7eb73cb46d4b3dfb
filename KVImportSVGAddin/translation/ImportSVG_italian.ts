<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="it_IT" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>Importazione SVG</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modalità</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>&amp;Inserisci come blocco</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Esplodi i nodi di testo in elementi di testo </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>Elaborazione &amp;batch</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>File SVG</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Nome:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Sfoglia...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Percorso:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Seleziona un modello di progetto</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posizione</translation>
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
        <translation>S&amp;pecifica dopo</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Scala</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Fattore:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Specifi&amp;ca dopo</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotazione</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>&amp;Angolo:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Specifica &amp;dopo</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Unità del file SVG</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>Unità p&amp;rincipali</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>S&amp;ottounità</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Converti disegno in</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>&amp;Unità:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Senza unità</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Pollici</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Piedi</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Miglia</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Millimetri</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Centimetri</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Metri</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Chilometri</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Micropollici</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Millesimi</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Iarde</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angstrom</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanometri</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Micron</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Decimetri</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Ettometri</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigametri</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronomiche</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parsec</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Fattore:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annulla</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Guida</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>File SVG</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Percorso di origine:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Percorso di destinazione:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>S&amp;foglia...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>File</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Seleziona &amp;tutto</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>Usa impostazioni &amp;globali</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Interrompi</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Avvia</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Chiudi</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Specifica cartella</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Apri file</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Grafica vettoriale scalabile (*.svg)</translation>
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
        <translation>Impossibile caricare il disegno perché non è un file SVG.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Elaborazione batch</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>Nessun file SVG trovato nel percorso specificato.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Interrompere l’elaborazione batch?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Elaborazione batch completata.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Modello di progetto</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Unità di conversione</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Valore dell’unità</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Predefinito</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Unità principali</translation>
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
        <translation>Inserisce un file SVG come blocco: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>Importa SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>Importa SVG</translation>
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
        <translation>Impossibile aprire il file XML: %1</translation>
    </message>
</context>
</TS>
