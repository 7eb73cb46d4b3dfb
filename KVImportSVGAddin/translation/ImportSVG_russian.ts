<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>Импорт SVG</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Режим</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>Вставить как &amp;блок</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>&amp;Расчленить текстовые узлы на текстовые элементы </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>&amp;Пакетная обработка</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>Файл SVG</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>Имя:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>&amp;Обзор...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>Путь:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>Выберите модель проекта</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>Положение</translation>
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
        <translation>&amp;Указать позже</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Масштаб</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>&amp;Коэфф.:</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>Указать по&amp;зже</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>Поворот</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>У&amp;гол:</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>Ук&amp;азать позже</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>Единицы файла SVG</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>О&amp;сновные единицы</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>Подъ&amp;единицы</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>Перевести чертеж в</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>Е&amp;диницы:</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>Без единиц</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>Дюймы</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>Футы</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>Мили</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>Миллиметры</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>Сантиметры</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>Метры</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>Километры</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>Микродюймы</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>Милы</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>Ярды</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>Ангстремы</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>Нанометры</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>Микроны</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>Дециметры</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>Гектометры</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>Гигаметры</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>Астрономические</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>Парсеки</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>Коэфф.:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>ОК</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>Файлы SVG</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>Исходный путь:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>Путь сохранения:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>Об&amp;зор...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>Файлы</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>&amp;Выбрать все</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>&amp;Глобальные настройки</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Прервать</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Начать</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>Укажите папку</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>Открыть файл</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>Масштабируемая векторная графика (*.svg)</translation>
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
        <translation>Невозможно загрузить этот чертеж: он не является файлом SVG.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>Пакетная обработка</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>По указанному пути файлы SVG не найдены.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>Прервать пакетную обработку?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>Пакетная обработка завершена.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>Модель проекта</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>Единицы перевода</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>Значение единицы</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>По умолчанию</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>Основные единицы</translation>
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
        <translation>Вставка файла SVG как блока: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>Импорт SVG</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>Импорт SVG</translation>
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
        <translation>Не удается открыть файл XML: %1</translation>
    </message>
</context>
</TS>
