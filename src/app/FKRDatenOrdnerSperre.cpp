#include "FKRDatenOrdnerSperre.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace {
QString systemFehler(const QString &was, int nummer)
{
    return was + QStringLiteral(": ") + QString::fromLocal8Bit(std::strerror(nummer));
}
} // namespace

FKRDatenOrdnerSperre::~FKRDatenOrdnerSperre()
{
    gibFrei();
}

FKRDatenOrdnerSperre::Ergebnis FKRDatenOrdnerSperre::sperre(const QString &datenOrdner)
{
    if (gehalten())
        return Ergebnis::Gehalten;
    const QString name = QDir(datenOrdner).filePath(QString::fromLatin1(kDateiName));
    const QByteArray pfad = QFile::encodeName(name);
    // O_CLOEXEC: a program this one starts (a PDF viewer, a mail client) must not keep the
    // folder locked after this one has ended.
    int fd;
    do {
        fd = ::open(pfad.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0) {
        m_fehler = systemFehler(QStringLiteral("cannot open the lock file ") + name, errno);
        return Ergebnis::Fehler;
    }
    int status;
    do {
        status = ::flock(fd, LOCK_EX | LOCK_NB);
    } while (status != 0 && errno == EINTR);
    if (status != 0) {
        const int nummer = errno;
        ::close(fd);
        if (nummer == EWOULDBLOCK)
            return Ergebnis::Belegt;
        m_fehler = systemFehler(QStringLiteral("cannot lock ") + name, nummer);
        return Ergebnis::Fehler;
    }
    m_fd = fd;
    m_fehler.clear();
    return Ergebnis::Gehalten;
}

void FKRDatenOrdnerSperre::gibFrei()
{
    if (m_fd >= 0) {
        ::close(m_fd); // closing the only descriptor releases the lock
        m_fd = -1;
    }
}
