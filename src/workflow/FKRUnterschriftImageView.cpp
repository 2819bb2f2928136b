#include "FKRUnterschriftImageView.h"

#include "FKRAbsender.h"

std::optional<QByteArray> FKRUnterschriftImageView::gespeicherteBytes(const FKRAbsender &absender) const
{
    return absender.unterschriftImageBinary();
}

std::optional<QString> FKRUnterschriftImageView::gespeicherterPfad(const FKRAbsender &absender) const
{
    return absender.unterschriftImagePath();
}

void FKRUnterschriftImageView::loescheBild(FKRAbsender &absender) const
{
    absender.setUnterschriftImageBinary(std::nullopt);
    absender.setUnterschriftImagePath(std::nullopt);
}

bool FKRUnterschriftImageView::speichereBytes(FKRAbsender &absender, const QUrl &datei) const
{
    return absender.speichereUnterschriftBildAusDatei(datei);
}
