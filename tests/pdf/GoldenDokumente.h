#pragma once

#include <QList>
#include <QString>

#include <functional>

class FKRAbsender;
class FKRRechnung;
class ManagedObjectContext;

// The reference documents of the images under tests/data/golden, from fixed values and pictures
// drawn in code: every layout, paper size, language and document type, long lists, a letterhead.
class GoldenDokumente
{
public:
    struct Dokument
    {
        QString name; // file stem of its reference images: <name>-<page>.png
        bool letter = false;
        std::function<FKRRechnung *(ManagedObjectContext &context)> erstelle;
    };

    static QList<Dokument> alle();

    // A sender with every detail the layouts print, with a logo and a signature.
    static FKRAbsender *absender(ManagedObjectContext &context);
};
