#pragma once

#include "FKRImageView.h"

// The sender's logo.
class FKRLogoImageView : public FKRImageView
{
    Q_OBJECT

public:
    using FKRImageView::FKRImageView;

    std::optional<QByteArray> gespeicherteBytes(const FKRAbsender &absender) const override;
    std::optional<QString> gespeicherterPfad(const FKRAbsender &absender) const override;
    void loescheBild(FKRAbsender &absender) const override;

protected:
    bool speichereBytes(FKRAbsender &absender, const QUrl &datei) const override;
};
