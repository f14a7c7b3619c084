// Texts that other programs wrote, in whatever encoding they had.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>

namespace orvanta {

class CodePage;

/// Whether bytes are something else than UTF-8.
[[nodiscard]] bool isForeignText(const QByteArray& bytes);

/// The text of the bytes: by their mark (UTF-8, UTF-16, UTF-32), else UTF-8 when they are valid,
/// else windows-1251 when they look Cyrillic, else the page; null: as Latin letters.
[[nodiscard]] QString foreignText(const QByteArray& bytes,
                                  const std::shared_ptr<const CodePage>& page);

} // namespace orvanta
