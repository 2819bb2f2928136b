#include "FKRPDFSchutz.h"

#include "FKRPDFHerausgeber.h"

#include <QUuid>

#include <qpdf/Buffer.hh>
#include <qpdf/QPDF.hh>
#include <qpdf/QPDFObjectHandle.hh>
#include <qpdf/QPDFPageDocumentHelper.hh>
#include <qpdf/QPDFWriter.hh>

#include <stdexcept>

QString FKRPDFSchutz::neuesEigentuemerPasswort()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces).left(FKRPDFHerausgeber::kEigentuemerPasswortLaenge);
}

QByteArray FKRPDFSchutz::schuetze(const QByteArray &pdf, const QList<QSizeF> &seitenGroessen, const QString &titel,
                                  const QString &autor)
{
    try {
        QPDF dokument;
        dokument.setSuppressWarnings(true);
        dokument.processMemoryFile("document.pdf", pdf.constData(), static_cast<size_t>(pdf.size()));

        const std::vector<QPDFPageObjectHelper> seiten = QPDFPageDocumentHelper(dokument).getAllPages();
        for (size_t i = 0; i < seiten.size() && i < static_cast<size_t>(seitenGroessen.size()); ++i) {
            const QSizeF groesse = seitenGroessen.at(static_cast<qsizetype>(i));
            QPDFObjectHandle seite = seiten[i].getObjectHandle();
            // The page sizes are single-precision figures of thousandths of a point (595.276 ×
            // 841.89 for A4); written to three decimals the file states them exactly instead of
            // their binary approximation (595.276001).
            seite.replaceKey("/MediaBox",
                             QPDFObjectHandle::newArray({QPDFObjectHandle::newInteger(0), QPDFObjectHandle::newInteger(0),
                                                         QPDFObjectHandle::newReal(groesse.width(), 3),
                                                         QPDFObjectHandle::newReal(groesse.height(), 3)}));
            for (const char *box : {"/CropBox", "/TrimBox", "/BleedBox", "/ArtBox"})
                seite.removeKey(box);
        }

        QPDFObjectHandle info = QPDFObjectHandle::newDictionary();
        info.replaceKey("/Title", QPDFObjectHandle::newUnicodeString(titel.toStdString()));
        info.replaceKey("/Creator", QPDFObjectHandle::newUnicodeString(FKRPDFHerausgeber::kFirma));
        info.replaceKey("/Author", QPDFObjectHandle::newUnicodeString(autor.toStdString()));
        QPDFObjectHandle alteInfo = dokument.getTrailer().getKey("/Info");
        if (alteInfo.isDictionary()) {
            for (const char *schluessel : {"/Producer", "/CreationDate"})
                if (alteInfo.hasKey(schluessel))
                    info.replaceKey(schluessel, alteInfo.getKey(schluessel));
        }
        dokument.getTrailer().replaceKey("/Info", dokument.makeIndirectObject(info));

        const std::string eigentuemer = neuesEigentuemerPasswort().toStdString();
        QPDFWriter schreiber(dokument);
        schreiber.setOutputMemory();
        // AES-128 (revision 4): the file opens without a password anyway, so the stronger key
        // derivation of AES-256 would protect nothing more and costs several milliseconds per
        // file, which the document view pays on every change. qpdf calls revision 4 "insecure"
        // because newer PDF versions deprecate it; every reader still supports it.
        schreiber.setR4EncryptionParametersInsecure("", eigentuemer.c_str(),
                                                    /*allow_accessibility*/ true, /*allow_extract*/ true,
                                                    /*allow_assemble*/ false, /*allow_annotate_and_form*/ false,
                                                    /*allow_form_filling*/ false, /*allow_modify_other*/ false,
                                                    qpdf_r3p_full, /*encrypt_metadata*/ true, /*use_aes*/ true);
        schreiber.write();
        const std::shared_ptr<Buffer> puffer = schreiber.getBufferSharedPointer();
        return QByteArray(reinterpret_cast<const char *>(puffer->getBuffer()), static_cast<qsizetype>(puffer->getSize()));
    } catch (const std::exception &fehler) {
        throw std::runtime_error(std::string("cannot finish the PDF: ") + fehler.what());
    }
}
