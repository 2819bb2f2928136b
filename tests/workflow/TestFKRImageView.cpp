// The image slots of the sender tab: dropped files are checked by type, size and letterhead width.

#include "WorkflowTestSupport.h"

#include "FKRGeschaeftspapierImageView.h"
#include "FKRLogoImageView.h"
#include "FKRUnterschriftImageView.h"
#include "Testbilder.h"

#include <QDropEvent>
#include <QMimeData>
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

    // A PNG stating `dpi` (0: none); with no width a text file.
    QString bild(const QString &name, int breite, int dpi = 0)
    {
        QImage png(breite, 8, QImage::Format_RGB32);
        png.fill(Qt::darkCyan);
        if (dpi > 0)
            png.setDotsPerMeterX(qRound(dpi / 0.0254)), png.setDotsPerMeterY(qRound(dpi / 0.0254));
        QFile text(ordner.filePath(name));
        EXPECT_TRUE(breite ? png.save(ordner.filePath(name), "PNG") : text.open(QIODevice::WriteOnly) && text.write("x"));
        return ordner.filePath(name);
    }
    static QByteArray inhalt(const QString &pfad) { QFile d(pfad); return d.open(QIODevice::ReadOnly) ? d.readAll() : ""; }
    std::optional<QByteArray> gespeichert(const FKRImageView *feld) const
    {
        return feld == &logo ? absender->logoImageBinary()
               : feld == &unterschrift ? absender->unterschriftImageBinary() : absender->geschaeftspapierImageBinary();
    }
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
    const QString typ = u"ALERT_TEXT_IMAGETYPE_IMPORT_WARNING"_s, breite = u"ALERT_TEXT_BUSINESSPAPER_IMPORT_WARNING"_s;
    // Alert empty: accepted; "-": refused without a word. On A4 the limit is 594.276 points.
    const struct {
        FKRImageView *feld;
        QString name;
        int pixel, dpi;
        QByteArray herkunft;
        QString alert;
    } faelle[] = {
        {&logo, u"logo.gif"_s, 40, 0, {}, typ},
        {&logo, u"vom-logo.png"_s, 40, 0, "FKRLogoImageView", u"-"_s},
        {&unterschrift, u"vom-logo.png"_s, 40, 0, "FKRLogoImageView", {}},
        {&papier, u"schmal.png"_s, 590, 0, {}, breite},
        {&papier, u"a4.png"_s, 595, 0, {}, {}},
        {&papier, u"fein.png"_s, 1190, 144, {}, {}},
        {&logo, u"notiz.png"_s, 0, 0, {}, u"-"_s},
    };
    for (const auto &fall : faelle) {
        SCOPED_TRACE(fall.name.toStdString());
        const auto vorher = gespeichert(fall.feld);
        presenter.alerts.clear();
        const QString pfad = bild(fall.name, fall.pixel, fall.dpi);
        EXPECT_EQ(lasseFallen(*fall.feld, pfad, fall.herkunft), fall.alert.isEmpty());
        EXPECT_EQ(gespeichert(fall.feld), fall.alert.isEmpty() ? std::optional(inhalt(pfad)) : vorher);
        const bool stumm = fall.alert.isEmpty() || fall.alert == u"-"_s;
        EXPECT_EQ(presenter.alertTexte(), stumm ? QStringList() : QStringList{fall.alert});
    }
    EXPECT_EQ(absender->logoImagePath(), u"file:///alt/logo.png"_s);
    EXPECT_FALSE(moc().hasChanges());
}

// Which pictures are too large is the picture reader's rule (tested with it); the slot says so.
TEST_F(BildFeldTest, BilderJenseitsDerGrenzenWerdenAbgelehnt)
{
    QFile riesig(ordner.filePath(u"riesig.jpg"_s));
    ASSERT_TRUE(riesig.open(QIODevice::WriteOnly) && riesig.write(testbilder::jpegMitKopf({40000, 40000})) > 0);
    riesig.close();
    EXPECT_FALSE(lasseFallen(papier, riesig.fileName()));
    EXPECT_EQ(presenter.alertTexte(), QStringList{u"ALERT_TEXT_BILD_ZU_GROSS"_s});
    EXPECT_EQ(gespeichert(&papier), std::nullopt);
}

} // namespace
