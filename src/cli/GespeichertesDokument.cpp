#include "GespeichertesDokument.h"

#include "EingabeFehler.h"
#include "FKRRechnung.h"
#include "ManagedObjectContext.h"
#include "PersistentStoreCoordinator.h"

#include <QFile>
#include <QFileInfo>

#include <stdexcept>

namespace {

std::string grund(const StoreError &fehler)
{
    const std::string detail = fehler.detail().toStdString();
    switch (fehler.kind()) {
    case StoreError::Kind::NotAStore:
        return "not a store of Velmora Rechnungen (" + detail + ')';
    case StoreError::Kind::Damaged:
        return "the store is damaged (" + detail + ')';
    case StoreError::Kind::NewerVersion:
        return "written by a newer version of Velmora Rechnungen (schema " + detail + ')';
    case StoreError::Kind::CannotOpen:
    case StoreError::Kind::SaveFailed:
        break;
    }
    return detail;
}

} // namespace

GespeichertesDokument::GespeichertesDokument(const QString &storePfad, const QString &uniqueIdentifier)
{
    const std::string store = '"' + storePfad.toStdString() + '"';
    const QFileInfo info(storePfad);
    if (!info.exists())
        throw EingabeFehler({}, "cannot open the store " + store + ": no such file");
    if (!info.isFile())
        throw EingabeFehler({}, "cannot open the store " + store + ": not a file");
    if (!m_kopie.isValid())
        throw std::runtime_error("cannot create a private folder for the store: " + m_kopie.errorString().toStdString());

    // The journal belongs to the store: a transaction another program left unfinished is rolled
    // back in the copy as it would be in the original.
    const QString kopie = m_kopie.filePath(QString::fromLatin1(PersistentStoreCoordinator::kStoreFileName));
    for (const QString &endung : {QString(), QStringLiteral("-journal"), QStringLiteral("-wal")}) {
        QFile quelle(storePfad + endung);
        if (!endung.isEmpty() && !quelle.exists())
            continue;
        if (!quelle.copy(kopie + endung))
            throw EingabeFehler({}, "cannot read the store " + store + ": " + quelle.errorString().toStdString());
        // A store on read-only media still renders: the copy is ours to open for writing.
        QFile::setPermissions(kopie + endung, QFile::ReadOwner | QFile::WriteOwner);
    }

    try {
        m_coordinator = std::make_unique<PersistentStoreCoordinator>();
        m_coordinator->addPersistentStore(kopie);
        m_context = std::make_unique<ManagedObjectContext>(m_coordinator.get());
    } catch (const StoreError &fehler) {
        throw EingabeFehler({}, "cannot open the store " + store + ": " + grund(fehler));
    }
    const auto gefunden = m_context->fetch<FKRRechnung>([&](const ManagedObject &objekt) {
        return static_cast<const FKRRechnung &>(objekt).uniqueIdentifier() == uniqueIdentifier;
    });
    if (gefunden.isEmpty())
        throw EingabeFehler({}, "no document with uniqueIdentifier \"" + uniqueIdentifier.toStdString()
                                    + "\" in the store " + store);
    m_rechnung = gefunden.first();
}

GespeichertesDokument::~GespeichertesDokument()
{
    // The context's objects refer to the coordinator; it goes first, as in the application.
    m_context.reset();
    m_coordinator.reset();
}
