#include "FKRArbeitsSperre.h"

#include <QDir>
#include <QFile>

#include <cerrno>
#include <ctime>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// A work file is locked a moment after it was made; an unlocked one that has not changed for a
// minute is nobody's.
constexpr time_t kFrischSekunden = 60;
// Where the file system takes no locks only age tells: no backup or restore takes an hour
// without writing.
constexpr time_t kOhneSperreSekunden = 3600;

int oeffneOhneLink(const QString &pfad)
{
    // O_NONBLOCK: a pipe under a work file's name must not make the look at it wait.
    return ::open(QFile::encodeName(pfad).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
}

void entferne(const QString &pfad, bool ordner)
{
    if (ordner)
        QDir(pfad).removeRecursively(); // takes links inside as files, never follows them
    else
        QFile::remove(pfad);
}

} // namespace

FKRArbeitsSperre::FKRArbeitsSperre(const QString &pfad)
    : m_fd(oeffneOhneLink(pfad))
{
    if (m_fd >= 0 && ::flock(m_fd, LOCK_EX | LOCK_NB) != 0) {
        ::close(m_fd);
        m_fd = -1;
    }
}

FKRArbeitsSperre::~FKRArbeitsSperre()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

void FKRArbeitsSperre::raeumeAuf(const QString &ordner, const QStringList &muster)
{
    const QStringList namen =
        QDir(ordner).entryList(muster, QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    const time_t jetzt = std::time(nullptr);
    for (const QString &name : namen) {
        const QString pfad = ordner + QLatin1Char('/') + name;
        struct stat st {};
        if (::lstat(QFile::encodeName(pfad).constData(), &st) != 0)
            continue;
        const time_t alter = jetzt - st.st_mtime;
        if (S_ISLNK(st.st_mode)) {
            // Nobody makes links under these names; the link goes, what it points to stays.
            if (alter >= kFrischSekunden)
                QFile::remove(pfad);
            continue;
        }
        const int fd = oeffneOhneLink(pfad);
        if (fd < 0)
            continue;
        // The lock is kept while the entry goes, so nobody takes it up meanwhile.
        const bool frei = ::flock(fd, LOCK_EX | LOCK_NB) == 0;
        const bool ohneSperren = !frei && errno != EWOULDBLOCK;
        if ((frei && alter >= kFrischSekunden) || (ohneSperren && alter >= kOhneSperreSekunden))
            entferne(pfad, S_ISDIR(st.st_mode));
        ::close(fd);
    }
}
