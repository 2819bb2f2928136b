#pragma once

#include "FKRImageView.h"

// The letterhead: a picture of the whole page that the document is printed on. It must be at
// least as wide as the page (one point of tolerance); a narrower one would leave a strip of the
// page bare, and is refused with its own alert, as is a file of the wrong type.
class FKRGeschaeftspapierImageView : public FKRImageView
{
    Q_OBJECT

public:
    using FKRImageView::FKRImageView;

    std::optional<QByteArray> gespeicherteBytes(const FKRAbsender &absender) const override;
    std::optional<QString> gespeicherterPfad(const FKRAbsender &absender) const override;
    void loescheBild(FKRAbsender &absender) const override;

protected:
    bool speichereBytes(FKRAbsender &absender, const QUrl &datei) const override;
    QString typWarnungsSchluessel() const override;
    bool pruefeBild(const QImage &bild) override;
};
