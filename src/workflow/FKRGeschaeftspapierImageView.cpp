#include "FKRGeschaeftspapierImageView.h"

#include "FKRAbsender.h"
#include "FKRPDFWriter.h"

std::optional<QByteArray> FKRGeschaeftspapierImageView::gespeicherteBytes(const FKRAbsender &absender) const
{
    return absender.geschaeftspapierImageBinary();
}

std::optional<QString> FKRGeschaeftspapierImageView::gespeicherterPfad(const FKRAbsender &absender) const
{
    return absender.geschaeftspapierImagePath();
}

void FKRGeschaeftspapierImageView::loescheBild(FKRAbsender &absender) const
{
    absender.setGeschaeftspapierImageBinary(std::nullopt);
    absender.setGeschaeftspapierImagePath(std::nullopt);
}

bool FKRGeschaeftspapierImageView::speichereBytes(FKRAbsender &absender, const QUrl &datei) const
{
    return absender.speichereGeschaeftspapierBildAusDatei(datei);
}

QString FKRGeschaeftspapierImageView::typWarnungsSchluessel() const
{
    return QString::fromLatin1(QT_TRANSLATE_NOOP("Velmora", "ALERT_TEXT_BUSINESSPAPER_IMPORT_WARNING"));
}

bool FKRGeschaeftspapierImageView::pruefeBild(const QImage &bild)
{
    // The page size of the shared writer: A4 or Letter as chosen in the settings.
    const double grenze = FKRPDFWriter::instance().pageSize().width() - 1.0;
    if (groesseInPunkten(bild).width() < grenze) {
        zeigeWarnung(typWarnungsSchluessel());
        return false;
    }
    return true;
}
