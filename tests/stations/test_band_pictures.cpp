// SPDX-License-Identifier: GPL-3.0-or-later
// The pictures themselves: each type decodes, tails stand where both readers look, bombs claim what they should.
#include <openjpeg.h>

#include <QBuffer>
#include <QImageReader>
#include <QTemporaryDir>
#include <QTest>

#include "band_pictures.h"
#include "picture_faults.h"
#include "test_suite.h"

using namespace Qt::StringLiterals;

namespace {

// Size of a JPEG 2000 file as the library decodes it; whole: decodes every pixel, else reads the header only.
QSize Jp2Size(const QByteArray& file, bool whole) {
  QTemporaryDir folder;
  QFile out(folder.filePath(u"p.jp2"_s));
  if (!out.open(QIODevice::WriteOnly) || out.write(file) != file.size()) return {};
  out.close();
  const QByteArray name = out.fileName().toLocal8Bit();
  opj_stream_t* stream = opj_stream_create_default_file_stream(name.constData(), OPJ_TRUE);
  opj_codec_t* codec = opj_create_decompress(file.startsWith("\xff\x4f") ? OPJ_CODEC_J2K : OPJ_CODEC_JP2);
  opj_dparameters_t settings;
  opj_set_default_decoder_parameters(&settings);
  opj_setup_decoder(codec, &settings);
  opj_image_t* image = nullptr;
  QSize size;
  if (opj_read_header(stream, codec, &image) == OPJ_TRUE && (!whole || opj_decode(codec, stream, image) == OPJ_TRUE)) {
    size = QSize(static_cast<int>(image->x1), static_cast<int>(image->y1));
  }
  opj_image_destroy(image);
  opj_destroy_codec(codec);
  opj_stream_destroy(stream);
  return size;
}

bool IsJp2(const QByteArray& file) {
  return file.left(60).contains("\xff\x4f\xff\x51") || file.contains("ftypjp2 ");
}

}  // namespace

class TestBandPictures : public QObject {
  Q_OBJECT

 private Q_SLOTS:
  void everyTypeDecodes_data() {
    QTest::addColumn<PictureType>("type");
    QTest::addColumn<QByteArray>("magic");
    QTest::newRow("jpg") << PictureType::Jpeg << QByteArray("\xff\xd8\xff");
    QTest::newRow("jp2") << PictureType::Jp2 << QByteArray("\0\0\0\x0cjP  ", 8);
    QTest::newRow("j2k") << PictureType::J2kCodestream << QByteArray("\xff\x4f\xff\x51");
    QTest::newRow("png") << PictureType::Png << QByteArray("\x89PNG");
    QTest::newRow("gif") << PictureType::Gif << QByteArray("GIF89a");
    QTest::newRow("moving gif") << PictureType::AnimatedGif << QByteArray("GIF89a");
    QTest::newRow("bmp") << PictureType::Bmp << QByteArray("BM");
    QTest::newRow("mp4") << PictureType::Mp4
                         << QByteArray(
                                "\0\0\0\x18"
                                "ftypmp42",
                                12);
  }

  void everyTypeDecodes() {
    QFETCH(PictureType, type);
    QFETCH(QByteArray, magic);
    const PictureRecipe recipe{.seed = 5, .type = type, .size = QSize(160, 120), .scene = u"testcard"_s};
    QByteArray file = MakePicture(recipe);
    QCOMPARE(file.left(magic.size()), magic);
    if (type == PictureType::Mp4) return;
    if (IsJp2(file)) {
      QCOMPARE(Jp2Size(file, true), recipe.size);
      QCOMPARE(Jp2Size(AsBomb(file), false), QSize(60000, 60000));
      return;
    }
    QBuffer buffer(&file);
    QImageReader reader(&buffer);
    const QImage painted = PaintPicture(recipe);
    int frames = 0;
    QImage frame;
    for (QImage next = reader.read(); !next.isNull(); next = reader.read()) {
      frame = next;
      ++frames;
    }
    QCOMPARE(frames, type == PictureType::AnimatedGif ? 8 : 1);
    if (type == PictureType::AnimatedGif) return;
    QCOMPARE(frame.size(), recipe.size);
    const QColor is = frame.pixelColor(80, 60);
    const QColor was = painted.pixelColor(80, 60);
    QVERIFY(std::abs(is.red() - was.red()) + std::abs(is.green() - was.green()) + std::abs(is.blue() - was.blue()) <
            120);
    QByteArray bomb = AsBomb(file);
    if (type == PictureType::Bmp) {  // Qt does not tell the size of a BMP that it refuses
      QCOMPARE(bomb.mid(18, 8), QByteArray("\x60\xea\0\0\x60\xea\0\0", 8));
      return;
    }
    QBuffer bombBuffer(&bomb);
    QCOMPARE(QImageReader(&bombBuffer).size(), QSize(60000, 60000));
  }

  void tailsStandWhereReadersLook_data() {
    QTest::addColumn<PictureRecipe>("recipe");
    QTest::addColumn<QByteArray>("text");  // behind three NULs
    const QDateTime sent(QDate(2024, 1, 24), QTime(15, 30), Qt::UTC);
    const PictureRecipe plain{.caller = u"ZZ9QX"_s, .mode = u"FT8"_s, .snr = -12, .sent = sent};
    PictureRecipe hybrid = plain;
    hybrid.mode = u"EPH"_s;
    hybrid.snr = -3;
    PictureRecipe stars = plain;
    stars.tail = TailStyle::Stars;
    PictureRecipe brief = plain;
    brief.tail = TailStyle::Short;
    QTest::newRow("padded to 60") << plain << QByteArray("ZZ9QX * FT8 snr -12 *01:24:2024 15:30").leftJustified(60);
    QTest::newRow("hybrid") << hybrid << QByteArray("ZZ9QX -HYBRID- * EP snr -3 *01:24:2024 15:30").leftJustified(60);
    QTest::newRow("stars") << stars << QByteArray("0042***ZZ9QX * FT8 snr -12 *01:24:2024 15:30").leftJustified(60);
    QTest::newRow("short") << brief << QByteArray("ZZ9QX * FT8 snr -12 *01:24:2024 15:30");
  }

  void tailsStandWhereReadersLook() {
    QFETCH(PictureRecipe, recipe);
    QFETCH(QByteArray, text);
    QCOMPARE(MakeTail(recipe), QByteArray(3, '\0') + text);
    recipe.type = PictureType::Mp4;
    QVERIFY(MakePicture(recipe).endsWith(QByteArray(3, '\0') + text));
    recipe.tail = TailStyle::None;
    QVERIFY(!MakePicture(recipe).contains("snr"));
  }

  // What is left open follows from the seed: the same for the same seed, and not one picture for all.
  void seedsDecide() {
    QSet<QByteArray> tails;
    QSet<QByteArray> starts;
    for (quint32 seed = 1; seed <= 12; ++seed) {
      PictureRecipe recipe{.seed = seed, .size = QSize(32, 24), .sent = QDateTime::fromSecsSinceEpoch(0, Qt::UTC)};
      const QByteArray file = MakePicture(recipe);
      QVERIFY(file.endsWith(MakeTail(recipe)));
      QCOMPARE(MakePicture(recipe).left(16), file.left(16));
      tails << MakeTail(recipe);
      starts << file.left(4);
    }
    QVERIFY(tails.size() > 8);
    QVERIFY(starts.size() > 2);
  }

  // Every scene fills its canvas at every shape, also a very small and a very wide one.
  void scenesFillAnyShape() {
    for (const QString& scene : SceneNames()) {
      for (const QSize size : {QSize(16, 12), QSize(120, 40), QSize(60, 90)}) {
        const QImage image = PaintPicture({.seed = 3, .size = size, .scene = scene});
        QCOMPARE(image.size(), size);
        QSet<QRgb> colours;
        for (int x = 0; x < size.width(); ++x) colours << image.pixel(x, x * (size.height() - 1) / size.width());
        QVERIFY2(colours.size() > 6, qPrintable(scene));
      }
    }
  }
};

OMNI_TEST(TestBandPictures)
#include "test_band_pictures.moc"
