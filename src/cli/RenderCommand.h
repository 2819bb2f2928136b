#pragma once

#include "Command.h"

#include <QList>
#include <QString>

class FKRPosten;
class FKRRechnung;

// velmora-cli render: writes the PDF of one document, given as JSON (the amounts format plus
// sender, recipient and images) or found in a store by its uniqueIdentifier, exactly as the
// desktop program lays it out, on the user's paper size or Letter, in the user's locale or one
// given for the run.
class RenderCommand final : public Command
{
public:
    std::string_view name() const override { return "render"; }
    std::string_view arguments() const override { return "[OPTIONS] INPUT OUTPUT.pdf"; }
    std::string_view summary() const override;
    std::string_view description() const override;
    int execute(const QStringList &arguments, CommandStreams &io) override;

    // Writes the PDF of `rechnung` to `ausgabe` with the layout the document asks for. `posten`
    // are its items in input order, for messages. Throws EingabeFehler naming the attribute when
    // an amount cannot be computed, and one without a key for a document beyond the bounds of
    // FKRDokumentZuGross; returns false with `fehler` set when the file could not be written. `ausgabe` is untouched unless the complete file was written.
    static bool rendere(FKRRechnung &rechnung, const QList<FKRPosten *> &posten, const QString &ausgabe,
                        QString *fehler);
};
