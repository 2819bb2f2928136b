// The image slots of the sender tab: files dropped on them (and chosen in the file dialog) are
// checked by type and, for the letterhead, by width against the page, and their exact bytes are
// stored; drags between slots of one kind are refused; the delete buttons ask first.

#include "WorkflowTestSupport.h"

#include "FKRBildLeser.h"
#include "FKREditorAbsenderTab.h"
#include "FKRGeschaeftspapierImageView.h"
#include "FKRLogoImageView.h"
#include "FKRPDFWriter.h"
#include "FKRUnterschriftImageView.h"
#include "Testbilder.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QMimeData>
#include <QTabWidget>
#include <QTemporaryDir>

using namespace workflowtest;

namespace {

class BildFeldTest : public FensterTest
{
protected:
    BildFeldTest()
    {
        absender = moc().insertNewObject<FKRAbsender>();
        absender->setLogoImagePath(u"file:///alt/logo.png"_s);
        moc().save();
        for (FKRImageView *feld : felder)
            feld->setAbsender(absender);
    }

    // A PNG `breite` pixels wide; with `dpi` it states that resolution, otherwise none (a new
    // image carries the screen's resolution, which counts as none).
    QString bild(const QString &name, int breite, int dpi = 0)
    {
        QImage png(breite, 8, QImage::Format_RGB32);
        png.fill(Qt::darkCyan);
        if (dpi > 0) {
            png.setDotsPerMeterX(qRound(dpi / 0.0254));
            png.setDotsPerMeterY(qRound(dpi / 0.0254));
        }
        EXPECT_TRUE(png.save(ordner.filePath(name), "PNG"));
        return ordner.filePath(name);
    }
    static QByteArray inhalt(const QString &pfad)
    {
        QFile datei(pfad);
        EXPECT_TRUE(datei.open(QIODevice::ReadOnly));
        return datei.readAll();
    }
    std::optional<QByteArray> gespeichert(const FKRImageView *feld) const
    {
        return feld == &logo ? absender->logoImageBinary()
               : feld == &unterschrift ? absender->unterschriftImageBinary() : absender->geschaeftspapierImageBinary();
    }
    // Drops the file on the slot as the desktop does (the drop goes to the widget that accepted
    // the drag when it entered); true when the slot accepted it.
    static bool lasseFallen(FKRImageView &feld, const QString &pfad, const QByteArray &herkunft = {})
    {
        QMimeData daten;
        daten.setUrls({QUrl::fromLocalFile(pfad)});
        if (!herkunft.isEmpty())
            daten.setData(FKRImageView::kSlotMimeType, herkunft);
        QDragEnterEvent betreten(QPoint(10, 10), Qt::CopyAction, &daten, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&feld, &betreten);
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &daten, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&feld, &drop);
        return betreten.isAccepted() && drop.isAccepted();
    }

    QTemporaryDir ordner;
    FKRAbsender *absender = nullptr;
    FKRLogoImageView logo{*delegate};
    FKRUnterschriftImageView unterschrift{*delegate};
    FKRGeschaeftspapierImageView papier{*delegate};
    const QList<FKRImageView *> felder{&logo, &unterschrift, &papier};
};

TEST_F(BildFeldTest, TypBreiteUndHerkunftEntscheidenUndGespeichertWerdenDieGenauenBytes)
{
    ASSERT_NEAR(FKRPDFWriter::instance().pageSize().width(), 595.276, 0.001);
    const QString typ = u"ALERT_TEXT_IMAGETYPE_IMPORT_WARNING"_s, breite = u"ALERT_TEXT_BUSINESSPAPER_IMPORT_WARNING"_s;
    const struct {
        FKRImageView *feld;
        QString name;
        int pixel, dpi;
        QByteArray herkunft;
        QString alert; // empty: accepted
    } faelle[] = {
        // PNG content throughout: only the name decides the type.
        {&logo, u"logo.gif"_s, 40, 0, {}, typ},
        {&logo, u"logo"_s, 40, 0, {}, typ},
        {&logo, u"logo.png.txt"_s, 40, 0, {}, typ},
        {&logo, u"LOGO.PNG"_s, 40, 0, {}, {}},
        // Slots of one kind refuse each other's drags without a word.
        {&logo, u"vom-logo.png"_s, 40, 0, "FKRLogoImageView", u"-"_s},
        {&unterschrift, u"vom-logo.png"_s, 40, 0, "FKRLogoImageView", {}},
        // A4: the limit is 594.276 points; pixels count as points without a stated resolution,
        // at 144 dpi twice the pixels make the same points.
        {&papier, u"schmal.png"_s, 590, 0, {}, breite},
        {&papier, u"a4.png"_s, 595, 0, {}, {}},
        {&papier, u"fein-schmal.png"_s, 1180, 144, {}, breite},
        {&papier, u"fein.png"_s, 1190, 144, {}, {}},
        // A wrong type on this slot is explained by the letterhead's own alert.
        {&papier, u"papier.bmp"_s, 700, 0, {}, breite},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.name.toStdString());
        const auto vorher = gespeichert(fall.feld);
        presenter.alerts.clear();
        const QString pfad = bild(fall.name, fall.pixel, fall.dpi);
        EXPECT_EQ(lasseFallen(*fall.feld, pfad, fall.herkunft), fall.alert.isEmpty());
        EXPECT_EQ(gespeichert(fall.feld), fall.alert.isEmpty() ? std::optional(inhalt(pfad)) : vorher);
        const QString alert = fall.alert.isEmpty() || fall.alert == u"-"_s
                                  ? u"-"_s
                                  : u"ALERT_TITLE_HINWEIS / "_s + fall.alert + u" / BUTTON_TITLE_OK"_s;
        EXPECT_EQ(presenter.alerts.isEmpty() ? u"-"_s : alertZeile(presenter.alerts.first()), alert);
    }
    EXPECT_EQ(absender->logoImagePath(), u"file:///alt/logo.png"_s);
    EXPECT_EQ(logo.imageFileURL(), QUrl::fromLocalFile(ordner.filePath(u"LOGO.PNG"_s)));
    EXPECT_TRUE(logo.zeigtBild());
    EXPECT_FALSE(moc().hasChanges());

    // Letter is 612 points wide.
    FKRPDFWriter &writer = FKRPDFWriter::instance();
    const QSizeF seite = writer.pageSize();
    writer.setPageSize(QSizeF(612, 792));
    EXPECT_FALSE(lasseFallen(papier, bild(u"letter-schmal.png"_s, 610)));
    EXPECT_TRUE(lasseFallen(papier, bild(u"letter.png"_s, 611)));
    writer.setPageSize(seite);

    // A file that is no image at all is refused without a word, as the desktop offers it.
    QFile text(ordner.filePath(u"notiz.png"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("keine Grafik");
    text.close();
    presenter.alerts.clear();
    EXPECT_FALSE(lasseFallen(logo, text.fileName()));
    EXPECT_TRUE(presenter.alerts.isEmpty());
    EXPECT_EQ(absender->logoImageBinary(), inhalt(ordner.filePath(u"LOGO.PNG"_s)));
}

TEST_F(BildFeldTest, BilderJenseitsDerGrenzenWerdenAbgelehntUndGespeicherteBenannt)
{
    // 40000 x 40000 pixels (only the header is read), and a file of 32 MB and a byte (not read).
    const QByteArray riesig = testbilder::jpegMitKopf({40000, 40000});
    QFile vielePixel(ordner.filePath(u"riesig.jpg"_s));
    ASSERT_TRUE(vielePixel.open(QIODevice::WriteOnly));
    vielePixel.write(riesig);
    vielePixel.close();
    QFile lang(bild(u"lang.png"_s, 700));
    ASSERT_TRUE(lang.resize(FKRBildLeser::kMaxBytes + 1));
    for (FKRImageView *feld : felder) {
        for (const QString &pfad : {vielePixel.fileName(), lang.fileName()}) {
            SCOPED_TRACE(testing::Message() << feld->metaObject()->className() << " " << pfad.toStdString());
            presenter.alerts.clear();
            EXPECT_FALSE(lasseFallen(*feld, pfad));
            EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_BILD_ZU_GROSS"_s});
            EXPECT_FALSE(feld->zeigtBild());
            EXPECT_EQ(gespeichert(feld), std::nullopt);
        }
    }

    // Stored before the bounds (an older version, a restored backup): named, not decoded, and
    // held like an image, so it can be deleted.
    absender->setLogoImageBinary(riesig);
    logo.zeigeGespeichertesBild();
    EXPECT_TRUE(logo.zeigtBild());
    EXPECT_TRUE(logo.bild().isNull());
    EXPECT_EQ(logo.text(), FKRLocalizationHelper::hauptTabellenText(u"EDITOR_BILD_ZU_GROSS"_s));
    absender->setLogoImageBinary(std::nullopt);
    logo.zeigeGespeichertesBild();
    EXPECT_FALSE(logo.zeigtBild());
}

TEST_F(BildFeldTest, ImEditorWaehlenUndLoeschenMitRueckfrage)
{
    auto *rechnung = moc().insertNewObject<FKRRechnung>();
    rechnung->setAbsender(absender);
    moc().save();
    auto *fenster = FKRRechnungsDetailsWindowController::oeffne(*delegate, rechnung, nullptr);
    fenster->editor()->tabView()->setCurrentIndex(3);
    FKREditorAbsenderTab &tab = *fenster->editor()->absenderTab();
    FKRImageView &logo = *tab.absenderLogoImageView;
    EXPECT_EQ(logo.absender(), absender);

    // The file dialog for keyboard users takes the same way as a drop.
    const QString pfad = bild(u"logo.jpg.png"_s, 40);
    presenter.panelAntworten = {{pfad}};
    QTest::mouseClick(tab.findChild<QPushButton *>(u"absenderLogoImageViewWaehlenButton"_s), Qt::LeftButton);
    EXPECT_EQ(absender->logoImageBinary(), inhalt(pfad));
    EXPECT_TRUE(logo.zeigtBild());
    ASSERT_EQ(presenter.panelFilter.size(), 1);
    EXPECT_EQ(presenter.panelFilter[0].endungen, (QStringList{u"jpg"_s, u"jpeg"_s, u"png"_s, u"tif"_s, u"tiff"_s}));

    // Delete asks; cancelling keeps the image, OK clears bytes and path.
    QPushButton *loeschen = tab.findChild<QPushButton *>(u"absenderLogoImageViewLoeschenButton"_s);
    presenter.antworten = {kZweiterKnopf};
    QTest::mouseClick(loeschen, Qt::LeftButton);
    EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_DELETE"_s});
    EXPECT_TRUE(absender->logoImageBinary().has_value());
    QTest::keyClick(&logo, Qt::Key_Delete);
    EXPECT_EQ(presenter.alerts.size(), 2);
    EXPECT_EQ(absender->logoImageBinary(), std::nullopt);
    EXPECT_EQ(absender->logoImagePath(), std::nullopt);
    EXPECT_FALSE(logo.zeigtBild());
    EXPECT_FALSE(moc().hasChanges());
    // An empty slot has nothing to delete and asks nothing.
    QTest::mouseClick(loeschen, Qt::LeftButton);
    EXPECT_EQ(presenter.alerts.size(), 2);

    // The letterhead checkbox is the sender's.
    QTest::mouseClick(tab.geschaeftspapierDruckenCheckbox, Qt::LeftButton);
    EXPECT_EQ(absender->geschaeftspapierDrucken(), true);
    EXPECT_FALSE(moc().hasChanges());
}

} // namespace
