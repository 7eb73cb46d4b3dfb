<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="fr_FR" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>Importation SVG</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Mode</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>Insérer comme &amp;bloc</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>Décomposer les nœuds de &amp;texte en éléments de texte </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>Traitement par &amp;lots</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>Fichier SVG</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Nom&#xa0;:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Parcourir...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Chemin&#xa0;:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Choisir un modèle de conception</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Position</translation>
    </message>
    <message>
        <source>&amp;X :</source>
        <translation>&amp;X&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Y :</source>
        <translation>&amp;Y&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Z :</source>
        <translation>&amp;Z&#xa0;:</translation>
    </message>
    <message>
        <source>&amp;Specify later</source>
        <translation>&amp;Spécifier plus tard</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Échelle</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Facteur&#xa0;:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Spé&amp;cifier plus tard</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotation</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>&amp;Angle&#xa0;:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Spécifie&amp;r plus tard</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Unités du fichier SVG</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>&amp;Unités principales</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>Sous-u&amp;nités</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Convertir le dessin en</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>Un&amp;ités&#xa0;:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Sans unité</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Pouces</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Pieds</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Miles</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Millimètres</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Centimètres</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Mètres</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Kilomètres</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Micropouces</translation>
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
        <translation>Angströms</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanomètres</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Microns</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Décimètres</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Hectomètres</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigamètres</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronomiques</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parsecs</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Facteur&#xa0;:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Annuler</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Aide</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>Fichiers SVG</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Chemin source&#xa0;:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Chemin cible&#xa0;:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Pa&amp;rcourir...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Fichiers</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>T&amp;out sélectionner</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>Utiliser les paramètres &amp;globaux</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Interrompre</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Démarrer</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fermer</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Spécifier le dossier</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Ouvrir un fichier</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Graphiques vectoriels adaptables (*.svg)</translation>
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
        <translation>Impossible de charger ce dessin, car ce n’est pas un fichier SVG.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Traitement par lots</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>Aucun fichier SVG trouvé dans le chemin spécifié.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Voulez-vous interrompre le traitement par lots ?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Traitement par lots terminé.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Modèle de conception</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Unités de conversion</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Valeur de l’unité</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Par défaut</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Unités principales</translation>
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
        <translation>Insère un fichier SVG comme bloc&#xa0;: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>Importer SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>Importer SVG</translation>
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
        <translation>Impossible d’ouvrir le fichier XML&#xa0;: %1</translation>
    </message>
</context>
</TS>
