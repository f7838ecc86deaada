#include "WholeFile.h"

#include <QSaveFile>

QString WriteWholeFile(const QString &path, const std::string &text) {
    QSaveFile file(path);
    // Unbuffered, so that a short write shows here and not in a flush that commit() would
    // let pass; a short write is retried, and the retry tells the reason.
    const auto size = static_cast<qint64>(text.size());
    qint64 written = 0;
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        while (written < size) {
            const qint64 n = file.write(text.data() + written, size - written);
            if (n <= 0)
                break;
            written += n;
        }
    }
    if (file.isOpen() && written == size && file.commit())
        return {};
    const QString reason = file.errorString();
    return reason.isEmpty() ? QStringLiteral("Unknown error") : reason;
}
