// The toolkit's digests.
#include "workbench/report/Sha256.h"

#include <QCryptographicHash>
#include <QFile>
#include <filesystem>
#include <system_error>

std::optional<CString> Sha256OfFile(const CString& path) {
    const std::string name = ToUtf8(path.View());
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error))
        return std::nullopt;
    QFile file(QString::fromStdString(name));
    QCryptographicHash hash(QCryptographicHash::Sha256);
    if (!file.open(QIODevice::ReadOnly) || !hash.addData(&file))
        return std::nullopt;
    return FromUtf8(hash.result().toHex().toStdString());
}

std::string Sha256Base64(std::string_view bytes) {
    const QByteArray data = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
    return QCryptographicHash::hash(data, QCryptographicHash::Sha256).toBase64().toStdString();
}
