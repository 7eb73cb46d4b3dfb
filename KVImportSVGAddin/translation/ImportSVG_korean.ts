<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ko_KR" sourcelanguage="en_US">
<context>
    <name>MainWindow</name>
    <message>
        <source>SVG Import</source>
        <translation>SVG 가져오기</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>모드</translation>
    </message>
    <message>
        <source>&amp;Insert as Block</source>
        <translation>블록으로 삽입(&amp;I)</translation>
    </message>
    <message>
        <source>Explode te&amp;xt node to text element </source>
        <translation>텍스트 노드를 텍스트 요소로 분해(&amp;T) </translation>
    </message>
    <message>
        <source>&amp;Batch Processing</source>
        <translation>일괄 처리(&amp;B)</translation>
    </message>
    <message>
        <source>SVG file</source>
        <translation>SVG 파일</translation>
    </message>
    <message>
        <source>Name :</source>
        <translation>이름:</translation>
    </message>
    <message>
        <source>Bro&amp;wse...</source>
        <translation>찾아보기(&amp;W)...</translation>
    </message>
    <message>
        <source>Path :</source>
        <translation>경로:</translation>
    </message>
    <message>
        <source>Select a design model</source>
        <translation>설계 모델 선택</translation>
    </message>
    <message>
        <source>Position</source>
        <translation>위치</translation>
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
        <translation>나중에 지정(&amp;S)</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>축척</translation>
    </message>
    <message>
        <source>&amp;Factor :</source>
        <translation>계수(&amp;F):</translation>
    </message>
    <message>
        <source>Specify &amp;later</source>
        <translation>나중에 지정(&amp;L)</translation>
    </message>
    <message>
        <source>Rotation</source>
        <translation>회전</translation>
    </message>
    <message>
        <source>&amp;Angle :</source>
        <translation>각도(&amp;A):</translation>
    </message>
    <message>
        <source>Sp&amp;ecify later</source>
        <translation>나중에 지정(&amp;E)</translation>
    </message>
    <message>
        <source>SVG file units</source>
        <translation>SVG 파일 단위</translation>
    </message>
    <message>
        <source>&amp;Master units</source>
        <translation>기본 단위(&amp;M)</translation>
    </message>
    <message>
        <source>S&amp;ub units</source>
        <translation>하위 단위(&amp;U)</translation>
    </message>
    <message>
        <source>Convert drawing to</source>
        <translation>도면 변환 단위</translation>
    </message>
    <message>
        <source>Uni&amp;ts :</source>
        <translation>단위(&amp;N):</translation>
    </message>
    <message>
        <source>Unitless</source>
        <translation>단위 없음</translation>
    </message>
    <message>
        <source>Inches</source>
        <translation>인치</translation>
    </message>
    <message>
        <source>Feet</source>
        <translation>피트</translation>
    </message>
    <message>
        <source>Miles</source>
        <translation>마일</translation>
    </message>
    <message>
        <source>Milimeters</source>
        <translation>밀리미터</translation>
    </message>
    <message>
        <source>Centimeters</source>
        <translation>센티미터</translation>
    </message>
    <message>
        <source>Meters</source>
        <translation>미터</translation>
    </message>
    <message>
        <source>Kilometers</source>
        <translation>킬로미터</translation>
    </message>
    <message>
        <source>Microinches</source>
        <translation>마이크로인치</translation>
    </message>
    <message>
        <source>Mils</source>
        <translation>밀</translation>
    </message>
    <message>
        <source>Yards</source>
        <translation>야드</translation>
    </message>
    <message>
        <source>Angstroms</source>
        <translation>옹스트롬</translation>
    </message>
    <message>
        <source>Nanometers</source>
        <translation>나노미터</translation>
    </message>
    <message>
        <source>Microns</source>
        <translation>미크론</translation>
    </message>
    <message>
        <source>Decimeters</source>
        <translation>데시미터</translation>
    </message>
    <message>
        <source>Hectometers</source>
        <translation>헥토미터</translation>
    </message>
    <message>
        <source>Gigameters</source>
        <translation>기가미터</translation>
    </message>
    <message>
        <source>Astronomical</source>
        <translation>천문단위</translation>
    </message>
    <message>
        <source>Parsecs</source>
        <translation>파섹</translation>
    </message>
    <message>
        <source>Factor :</source>
        <translation>계수:</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>취소</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>확인</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>도움말</translation>
    </message>
    <message>
        <source>SVG files</source>
        <translation>SVG 파일</translation>
    </message>
    <message>
        <source>Source Path :</source>
        <translation>원본 경로:</translation>
    </message>
    <message>
        <source>Destination Path :</source>
        <translation>대상 경로:</translation>
    </message>
    <message>
        <source>Brow&amp;se...</source>
        <translation>찾아보기(&amp;R)...</translation>
    </message>
    <message>
        <source>Files</source>
        <translation>파일</translation>
    </message>
    <message>
        <source>Select &amp;all</source>
        <translation>모두 선택(&amp;A)</translation>
    </message>
    <message>
        <source>&amp;Use global settings</source>
        <translation>전역 설정 사용(&amp;G)</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>중단</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>시작</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>닫기</translation>
    </message>
    <message>
        <source>Specify Folder</source>
        <translation>폴더 지정</translation>
    </message>
    <message>
        <source>Open File</source>
        <translation>파일 열기</translation>
    </message>
    <message>
        <source>Scalable Vector Graphics (*.svg)</source>
        <translation>스케일러블 벡터 그래픽 (*.svg)</translation>
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
        <translation>이 도면은 SVG 파일이 아니므로 로드할 수 없습니다.</translation>
    </message>
    <message>
        <source>Batch Processing</source>
        <translation>일괄 처리</translation>
    </message>
    <message>
        <source>No SVG file Found in the specified path.</source>
        <translation>지정한 경로에 SVG 파일이 없습니다.</translation>
    </message>
    <message>
        <source>Do you want to stop Batch Processing?</source>
        <translation>일괄 처리를 중단하시겠습니까?</translation>
    </message>
    <message>
        <source>Batch Processing finished.</source>
        <translation>일괄 처리가 완료되었습니다.</translation>
    </message>
    <message>
        <source>Design Model</source>
        <translation>설계 모델</translation>
    </message>
    <message>
        <source>Conversion units</source>
        <translation>변환 단위</translation>
    </message>
    <message>
        <source>Unit Value</source>
        <translation>단위 값</translation>
    </message>
    <message>
        <source>Default</source>
        <translation>기본값</translation>
    </message>
    <message>
        <source>Master units</source>
        <translation>기본 단위</translation>
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
        <translation>SVG 파일을 블록으로 삽입: IMPORTSVG</translation>
    </message>
    <message>
        <source>Import SVG</source>
        <translation>SVG 가져오기</translation>
    </message>
    <message>
        <source>ImportSVG</source>
        <translation>SVG 가져오기</translation>
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
        <translation>XML 파일을 열 수 없습니다: %1</translation>
    </message>
</context>
</TS>
