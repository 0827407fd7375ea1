// The pictures of the form: each keeps its size at the ordinary pixel ratio and is drawn
// anew, not blown up, where a screen has more device pixels per pixel.
#include <QTest>

#include "gui/testing.h"
#include "support/form_fixture.h"

using namespace gui::testing;

class TestPictures : public FormFixture {
    Q_OBJECT
  private slots:
    void drawnForEachPixelRatio_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("size");  // in pixels at ratio 1
        QTest::addColumn<qreal>("ratio");
        const char* const controls[][2] = {
            {"add", "16"},          {"adddef", "16"},       {"delete", "16"},
            {"Command2", "16"},     {"rmerge", "16"},       {"Command3", "16"},
            {"Command4", "16"},     {"Command5", "16"},     {"Command6(0)", "16"},
            {"Command6(4)", "16"},  {"Command6(9)", "16"},  {"Command6(12)", "16"},
            {"Command6(14)", "16"}, {"Command6(21)", "16"}, {"Command6(24)", "16"},
            {"Image1(0)", "32"},    {"Image1(1)", "32"},
        };
        for (const auto& control : controls) {
            for (const qreal ratio : {1.0, 1.5, 2.0}) {
                QTest::addRow("%s at %g", control[0], ratio)
                    << QString::fromLatin1(control[0]) << QByteArray(control[1]).toInt() << ratio;
            }
        }
    }
    void drawnForEachPixelRatio() {
        QFETCH(QString, name);
        QFETCH(int, size);
        QFETCH(qreal, ratio);
        const QImage picture = PictureOf(find(name), ratio);
        QVERIFY(!picture.isNull());
        QCOMPARE(picture.devicePixelRatio(), ratio);
        // As many device pixels as the ratio asks for: nothing is left to scale on screen.
        const int pixels = qRound(size * ratio);
        QCOMPARE(picture.size(), QSize(pixels, pixels));
    }

    // A denser screen shows more of the drawing, not the same pixels bigger: the picture at
    // ratio 2 differs from its ratio 1 pixels doubled.
    void finerThanDoubledPixels_data() {
        QTest::addColumn<QString>("name");
        for (const char* name : {"add", "delete", "Command3", "Command6(12)", "Image1(1)"})
            QTest::newRow(name) << QString::fromLatin1(name);
    }
    void finerThanDoubledPixels() {
        QFETCH(QString, name);
        const QImage single = PictureOf(find(name), 1.0);
        const QImage doubled =
            single.scaled(single.size() * 2, Qt::IgnoreAspectRatio, Qt::FastTransformation);
        QImage fine = PictureOf(find(name), 2.0);
        fine.setDevicePixelRatio(1.0);
        QCOMPARE(fine.size(), doubled.size());
        QVERIFY(fine.convertToFormat(doubled.format()) != doubled);
    }

    void windowIconInEveryThemeSize() {
        const QList<QSize> sizes = IconSizesOf(form().main);
        for (const int side : {16, 22, 24, 32, 48, 64, 128, 256})
            QVERIFY2(sizes.contains(QSize(side, side)), qPrintable(QString::number(side)));
    }
};

RIGWRIGHT_TEST_CLASS(TestPictures)
#include "test_pictures.moc"
