#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <functional>

class FKRRechnung;
class ManagedObjectContext;

// The reference documents whose renderings are kept as images under tests/data/golden: every
// layout, both paper sizes, both document languages, each document type, a list of items long
// enough for several pages, a sender with a letterhead, an invoice in Swiss francs, a net
// invoice, a logo that has to be fitted. All values
// are fixed (dates included), and the images are drawn in code, so the same document comes out
// the same on every run.
class GoldenDokumente
{
public:
    struct Dokument
    {
        // File stem of its reference images: <name>-<page>.png.
        QString name;
        bool letter = false;
        // Builds the document, with its sender, recipient and items, in `context`.
        std::function<FKRRechnung *(ManagedObjectContext &context)> erstelle;
    };

    static QList<Dokument> alle();

    // Pictures for the senders: a logo, a signature and a full-page letterhead, as PNG bytes
    // stating their resolution.
    static QByteArray logo();
    // A logo wider and taller than the space a layout has for it.
    static QByteArray breitesLogo();
    static QByteArray unterschrift();
    static QByteArray geschaeftspapier();
};
