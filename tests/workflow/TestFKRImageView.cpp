// The image slots of the sender tab: files dropped on them (and chosen in the file dialog) are
// checked by type and, for the letterhead, by width against the page, and their exact bytes are
// stored; drags between slots of one kind are refused; the delete buttons ask first.

#include "WorkflowTestSupport.h"

#include "FKRAbsender.h"
#include "FKRBildLeser.h"
#include "FKREditorAbsenderTab.h"
#include "FKRGeschaeftspapierImageView.h"
#include "FKRLogoImageView.h"
#include "FKRPDFWriter.h"
#include "FKRRechnung.h"
#include "FKRRechnungsDetailsViewController.h"
#include "FKRRechnungsDetailsWindowController.h"
#include "FKRUnterschriftImageView.h"
#include "Testbilder.h"

#include <QCheckBox>
#include <QDropEvent>
#include <QFile>
#include <QImage>
#include <QMimeData>
#include <QPushButton>
#include <QTabWidget>
#include <QTemporaryDir>

using namespace workflowtest;
using namespace Qt::Literals::StringLiterals;

namespace {

class BildFeldTest : public FensterTest
{
protected:
    BildFeldTest()
    {
        absender = moc().insertNewObject<FKRAbsender>();
        absender->setLogoImagePath(u"file:///alt/logo.png"_s);
        moc().save();
    }

    ~BildFeldTest() override
    {
        while (auto *fenster = FKRRechnungsDetailsWindowController::aktuellesFenster())
            fenster->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // A PNG `breite` pixels wide; with `dpi` it states that resolution, otherwise none.
    QString bild(const QString &name, int breite, int dpi = 0)
    {
        QImage png(breite, 8, QImage::Format_RGB32);
        png.fill(Qt::darkCyan);
        // A new image carries the screen's resolution, which counts as none.
        if (dpi > 0) {
            png.setDotsPerMeterX(qRound(dpi / 0.0254));
            png.setDotsPerMeterY(qRound(dpi / 0.0254));
        }
        const QString pfad = ordner.filePath(name);
        EXPECT_TRUE(png.save(pfad, "PNG"));
        return pfad;
    }

    static QByteArray inhalt(const QString &pfad)
    {
        QFile datei(pfad);
        EXPECT_TRUE(datei.open(QIODevice::ReadOnly));
        return datei.readAll();
    }

    // Drops the file on the slot as the desktop does; true when the slot accepted it.
    static bool lasseFallen(FKRImageView &feld, const QString &pfad, const QByteArray &herkunft = {})
    {
        QMimeData daten;
        daten.setUrls({QUrl::fromLocalFile(pfad)});
        if (!herkunft.isEmpty())
            daten.setData(FKRImageView::kSlotMimeType, herkunft);
        // The drop goes to the widget that accepted the drag when it entered, as on the desktop.
        QDragEnterEvent betreten(QPoint(10, 10), Qt::CopyAction, &daten, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&feld, &betreten);
        QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &daten, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(&feld, &drop);
        return betreten.isAccepted() && drop.isAccepted();
    }

    QTemporaryDir ordner;
    FKRAbsender *absender = nullptr;
};

TEST_F(BildFeldTest, LogoPrueftDieEndungUndSpeichertDieGenauenBytes)
{
    FKRLogoImageView logo(*delegate);
    logo.setAbsender(absender);

    for (const QString &name : {u"logo.gif"_s, u"logo"_s, u"logo.png.txt"_s}) {
        presenter.alerts.clear();
        // PNG content throughout: only the name decides.
        EXPECT_FALSE(lasseFallen(logo, bild(name, 40))) << name.toStdString();
        EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_IMAGETYPE_IMPORT_WARNING"_s});
        EXPECT_EQ(presenter.alerts.value(0).knopfSchluessel, QStringList{u"BUTTON_TITLE_OK"_s});
    }
    EXPECT_EQ(absender->logoImageBinary(), std::nullopt);
    EXPECT_FALSE(logo.zeigtBild());

    presenter.alerts.clear();
    const QString pfad = bild(u"LOGO.PNG"_s, 40);
    EXPECT_TRUE(lasseFallen(logo, pfad));
    EXPECT_TRUE(presenter.alerts.isEmpty());
    EXPECT_EQ(absender->logoImageBinary(), inhalt(pfad));
    EXPECT_EQ(absender->logoImagePath(), u"file:///alt/logo.png"_s);
    EXPECT_EQ(logo.imageFileURL(), QUrl::fromLocalFile(pfad));
    EXPECT_TRUE(logo.zeigtBild());
    EXPECT_FALSE(moc().hasChanges());

    // A file that is no image at all is refused without a word, as the desktop offers it.
    QFile text(ordner.filePath(u"notiz.png"_s));
    ASSERT_TRUE(text.open(QIODevice::WriteOnly));
    text.write("keine Grafik");
    text.close();
    presenter.alerts.clear();
    EXPECT_FALSE(lasseFallen(logo, text.fileName()));
    EXPECT_TRUE(presenter.alerts.isEmpty());
    EXPECT_EQ(absender->logoImageBinary(), inhalt(pfad));
}

TEST_F(BildFeldTest, GeschaeftspapierMussSoBreitWieDieSeiteSein)
{
    FKRGeschaeftspapierImageView papier(*delegate);
    papier.setAbsender(absender);
    FKRPDFWriter &writer = FKRPDFWriter::instance();
    const QSizeF seite = writer.pageSize();
    ASSERT_NEAR(seite.width(), 595.276, 0.001);

    // A4: the limit is 594.276 points; pixels count as points without a stated resolution.
    EXPECT_FALSE(lasseFallen(papier, bild(u"schmal.png"_s, 590)));
    EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_BUSINESSPAPER_IMPORT_WARNING"_s});
    EXPECT_EQ(absender->geschaeftspapierImageBinary(), std::nullopt);
    EXPECT_TRUE(lasseFallen(papier, bild(u"a4.png"_s, 595)));
    // At 144 dpi, twice the pixels make the same points.
    EXPECT_FALSE(lasseFallen(papier, bild(u"fein-schmal.png"_s, 1180, 144)));
    const QString fein = bild(u"fein.png"_s, 1190, 144);
    EXPECT_TRUE(lasseFallen(papier, fein));
    EXPECT_EQ(absender->geschaeftspapierImageBinary(), inhalt(fein));

    // Letter is 612 points wide.
    writer.setPageSize(QSizeF(612, 792));
    presenter.alerts.clear();
    EXPECT_FALSE(lasseFallen(papier, bild(u"letter-schmal.png"_s, 610)));
    EXPECT_TRUE(lasseFallen(papier, bild(u"letter.png"_s, 611)));
    writer.setPageSize(seite);

    // A wrong type on this slot is explained by the letterhead's own alert.
    presenter.alerts.clear();
    EXPECT_FALSE(lasseFallen(papier, bild(u"papier.bmp"_s, 700)));
    EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_BUSINESSPAPER_IMPORT_WARNING"_s});
}

TEST_F(BildFeldTest, BilderJenseitsDerGrenzenWerdenAbgelehntUndGespeicherteBenannt)
{
    FKRLogoImageView logo(*delegate);
    FKRUnterschriftImageView unterschrift(*delegate);
    FKRGeschaeftspapierImageView papier(*delegate);
    // 40000 x 40000 pixels (only the header is read), and a file of 32 MB and a byte (not read).
    const QByteArray riesig = testbilder::jpegMitKopf({40000, 40000});
    const QString vielePixel = ordner.filePath(u"riesig.jpg"_s);
    QFile datei(vielePixel);
    ASSERT_TRUE(datei.open(QIODevice::WriteOnly));
    datei.write(riesig);
    datei.close();
    const QString langeDatei = bild(u"lang.png"_s, 700);
    QFile lang(langeDatei);
    ASSERT_TRUE(lang.resize(FKRBildLeser::kMaxBytes + 1));

    for (FKRImageView *feld : {static_cast<FKRImageView *>(&logo), static_cast<FKRImageView *>(&unterschrift),
                               static_cast<FKRImageView *>(&papier)}) {
        feld->setAbsender(absender);
        for (const QString &pfad : {vielePixel, langeDatei}) {
            SCOPED_TRACE(testing::Message() << feld->metaObject()->className() << " " << pfad.toStdString());
            presenter.alerts.clear();
            EXPECT_FALSE(lasseFallen(*feld, pfad));
            EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_BILD_ZU_GROSS"_s});
            EXPECT_FALSE(feld->zeigtBild());
        }
    }
    EXPECT_EQ(absender->logoImageBinary(), std::nullopt);
    EXPECT_EQ(absender->unterschriftImageBinary(), std::nullopt);
    EXPECT_EQ(absender->geschaeftspapierImageBinary(), std::nullopt);

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

TEST_F(BildFeldTest, ZiehenZwischenFeldernDerselbenArtWirdAbgelehnt)
{
    FKRLogoImageView logo(*delegate);
    FKRUnterschriftImageView unterschrift(*delegate);
    logo.setAbsender(absender);
    unterschrift.setAbsender(absender);
    const QString pfad = bild(u"logo.png"_s, 40);

    EXPECT_FALSE(lasseFallen(logo, pfad, "FKRLogoImageView"));
    EXPECT_EQ(absender->logoImageBinary(), std::nullopt);
    EXPECT_TRUE(presenter.alerts.isEmpty());

    EXPECT_TRUE(lasseFallen(unterschrift, pfad, "FKRLogoImageView"));
    EXPECT_EQ(absender->unterschriftImageBinary(), inhalt(pfad));
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
    EXPECT_EQ(presenter.alerts.value(0).textSchluessel, u"ALERT_TEXT_DELETE"_s);
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
