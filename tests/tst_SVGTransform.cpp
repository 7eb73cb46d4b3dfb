// The transform text is cut by position and its numbers are applied with the y axis turned over.

#include "XMLParser/SVGTransform.h"

#include <QtTest>

using Numbers = QVector<double>;

namespace {

kvDoubleArray toArray(const Numbers &numbers)
{
    kvDoubleArray array;
    for (const double number : numbers)
        array.add(number);
    return array;
}

Numbers toNumbers(const kvDoubleArray &array)
{
    Numbers numbers;
    for (int i = 0; i < array.getSize(); ++i)
        numbers.append(array[i]);
    return numbers;
}

} // namespace

class tst_SVGTransform : public QObject {
    Q_OBJECT

private slots:
    void coefficients_data();
    void coefficients();
    void coordinates_data();
    void coordinates();
    void flipNegatesEveryY();
    void textsAreKeptApart();
    void sharedTextIsReadOnce();
};

void tst_SVGTransform::coefficients_data()
{
    QTest::addColumn<QString>("transform");
    QTest::addColumn<Numbers>("expected");

    QTest::newRow("commas separate") << "matrix(1,2,3,4,5,6)" << Numbers{1, 2, 3, 4, 5, 6};
    QTest::newRow("blanks separate") << "matrix(1 2 3 4 5 6)" << Numbers{1, 2, 3, 4, 5, 6};
    QTest::newRow("a comma and a blank count once")
        << "matrix(1, 2, 3, 4, 5, 6)" << Numbers{1, 2, 3, 4, 5, 6};
    QTest::newRow("a tab does not separate") << "matrix(1\t2 3 4 5 6)" << Numbers{0, 3, 4, 5, 6, 0};
    QTest::newRow("numbers after the sixth are ignored")
        << "matrix(1 2 3 4 5 6 7)" << Numbers{1, 2, 3, 4, 5, 6};
    QTest::newRow("missing numbers are those of the identity") << "matrix(2)" << Numbers{2, 0, 0, 1, 0, 0};
    QTest::newRow("a missing d is 1") << "matrix(2 3 4)" << Numbers{2, 3, 4, 1, 0, 0};
    QTest::newRow("what is no number is 0") << "matrix(1px 2 3 x 5 6)" << Numbers{0, 2, 3, 0, 5, 6};
    QTest::newRow("an exponent is read") << "matrix(1e-2 2 3 4 5 6)" << Numbers{0.01, 2, 3, 4, 5, 6};
    QTest::newRow("nothing in the parentheses is no matrix") << "matrix()" << Numbers{};
    QTest::newRow("separators alone are no matrix") << "matrix(, ,)" << Numbers{};
    QTest::newRow("no text is no matrix") << "" << Numbers{};
    QTest::newRow("seven characters are no matrix") << "matrix(" << Numbers{};
    QTest::newRow("five characters are no matrix") << "1 2 3" << Numbers{};
    QTest::newRow("the word itself is not looked at") << "abcdefg1 2z" << Numbers{1, 2, 0, 1, 0, 0};
    QTest::newRow("translate is cut at the same places") << "translate(10,20)" << Numbers{0, 20, 0, 1, 0, 0};
    QTest::newRow("a matrix behind a translate is read as one text")
        << "translate(10,20) matrix(1,0,0,1,0,0)" << Numbers{0, 0, 0, 0, 0, 1};
    QTest::newRow("a blank in front shifts the cut") << " matrix(7 2 3 4 5 6)" << Numbers{0, 2, 3, 4, 5, 6};
    QTest::newRow("the last character is dropped, whatever it is")
        << "matrix(1 2 3 4 5 67" << Numbers{1, 2, 3, 4, 5, 6};
}

void tst_SVGTransform::coefficients()
{
    QFETCH(QString, transform);
    QFETCH(Numbers, expected);

    const std::optional<SVGMatrix> matrix = matrixFromAttribute(transform);
    QCOMPARE(matrix.has_value(), !expected.isEmpty());
    if (matrix)
        QCOMPARE((Numbers{matrix->a, matrix->b, matrix->c, matrix->d, matrix->e, matrix->f}), expected);
}

void tst_SVGTransform::coordinates_data()
{
    QTest::addColumn<Numbers>("matrix");
    QTest::addColumn<Numbers>("values");
    QTest::addColumn<Numbers>("expected");

    QTest::newRow("the identity turns y over")
        << Numbers{1, 0, 0, 1, 0, 0} << Numbers{5, 7} << Numbers{5, -7};
    QTest::newRow("scale and move") << Numbers{2, 0, 0, 2, 10, 20} << Numbers{3, 4} << Numbers{16, -28};
    QTest::newRow("b goes from x into y") << Numbers{1, 3, 0, 1, 0, 0} << Numbers{2, 5} << Numbers{2, -11};
    QTest::newRow("c goes from y into x") << Numbers{1, 0, 3, 1, 0, 0} << Numbers{2, 5} << Numbers{17, -5};
    QTest::newRow("each pair uses its own x")
        << Numbers{1, 1, 0, 1, 0, 0} << Numbers{1, 2, 10, 20} << Numbers{1, -3, 10, -30};
    QTest::newRow("a last x without y counts y as 0")
        << Numbers{2, 5, 7, 1, 1, 1} << Numbers{1, 1, 4} << Numbers{10, -7, 9};
    QTest::newRow("nothing stays nothing") << Numbers{2, 0, 0, 2, 1, 1} << Numbers{} << Numbers{};
}

void tst_SVGTransform::coordinates()
{
    QFETCH(Numbers, matrix);
    QFETCH(Numbers, values);
    QFETCH(Numbers, expected);

    const SVGMatrix coefficients = {matrix[0], matrix[1], matrix[2], matrix[3], matrix[4], matrix[5]};
    QCOMPARE(toNumbers(mapped(coefficients, toArray(values))), expected);
}

void tst_SVGTransform::flipNegatesEveryY()
{
    QCOMPARE(toNumbers(flipped(toArray({1, 2, 3, -4, 5}))), (Numbers{1, -2, 3, 4, 5}));
}

void tst_SVGTransform::textsAreKeptApart()
{
    const QString blanks(300, ' ');
    const QStringList texts{"",
                            "matrix(1)",
                            "matrix(2)",
                            "translate(3 4)",
                            "matrix(5" + blanks + ")",
                            "matrix(6" + blanks + ")",
                            "matrix(7 8)" + QString(QChar(0)) + "9"};
    const QStringList read{"-", "m1", "m2", "0", "m5", "m6", "m7"};
    SVGTransforms transforms;
    for (int round = 0; round < 3; ++round) {
        QStringList found;
        for (const QString &text : texts) {
            const SVGTransforms::Transform &transform = transforms.of(text);
            found += QLatin1String(transform.saysMatrix ? "m" : "")
                + (transform.matrix ? QString::number(transform.matrix->a) : "-");
        }
        QCOMPARE(found, read);
    }
}

void tst_SVGTransform::sharedTextIsReadOnce()
{
    // Read for each use it takes ten minutes.
    const QString text = "matrix(1" + QString(1000000, ' ') + ")";
    SVGTransforms transforms;
    QElapsedTimer timer;
    timer.start();
    for (int i = 0; i < 100000; ++i) {
        QVERIFY(transforms.of(text).saysMatrix);
        QVERIFY(!transforms.of("scale(2)").saysMatrix);
    }
    QVERIFY(timer.elapsed() < 5000);
}

QTEST_APPLESS_MAIN(tst_SVGTransform)
#include "tst_SVGTransform.moc"
