<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="pt_BR" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>Importação de SVG</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Modo</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>&amp;Inserir como bloco</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Explodir nós de texto em elementos de texto </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>&amp;Processamento em lote</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>Arquivo SVG</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Nome:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>Procu&amp;rar...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Caminho:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Selecionar um modelo de projeto</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Posição</translation>
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
        <translation>&amp;Definir depois</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Escala</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Fator:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Definir depoi&amp;s</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Rotação</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>Â&amp;ngulo:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Definir dep&amp;ois</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Unidades do arquivo SVG</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>Unidades &amp;mestras</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>Su&amp;bunidades</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Converter desenho para</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>&amp;Unidades:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Sem unidade</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Polegadas</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Pés</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Milhas</translation>
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
        <translation>Quilômetros</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Micropolegadas</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Milésimos</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Jardas</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Angstroms</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Nanômetros</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Mícrons</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Decímetros</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Hectômetros</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Gigâmetros</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Astronômicas</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Parsecs</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Fator:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Cancelar</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Ajuda</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>Arquivos SVG</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Caminho de origem:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Caminho de destino:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Proc&amp;urar...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Arquivos</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>Selecionar &amp;tudo</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>Usar configurações &amp;globais</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Interromper</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Iniciar</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Fechar</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Definir pasta</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Abrir arquivo</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Gráficos vetoriais escaláveis (*.svg)</translation>
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
        <translation>Este desenho não pode ser carregado porque não é um arquivo SVG.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Processamento em lote</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>Nenhum arquivo SVG encontrado no caminho definido.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Deseja interromper o processamento em lote?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Processamento em lote concluído.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Modelo de projeto</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Unidades de conversão</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Valor da unidade</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>Padrão</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Unidades mestras</translation>
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
        <translation>Insere arquivo SVG como bloco: IMPORTSVG</translation>
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
        <translation>Não é possível abrir o arquivo XML: %1</translation>
    </message>
</context>
</TS>
