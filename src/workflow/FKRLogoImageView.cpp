#include "FKRLogoImageView.h"

#include "FKRAbsender.h"

std::optional<QByteArray> FKRLogoImageView::gespeicherteBytes(const FKRAbsender &absender) const
{
    return absender.logoImageBinary();
}

std::optional<QString> FKRLogoImageView::gespeicherterPfad(const FKRAbsender &absender) const
{
    return absender.logoImagePath();
}

void FKRLogoImageView::loescheBild(FKRAbsender &absender) const
{
    absender.setLogoImageBinary(std::nullopt);
    absender.setLogoImagePath(std::nullopt);
}

bool FKRLogoImageView::speichereBytes(FKRAbsender &absender, const QUrl &datei) const
{
    return absender.speichereLogoBildAusDatei(datei);
}
