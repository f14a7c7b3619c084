#include "platform/media/mark_suggestions.h"

#include "core/ini_encoding.h"

namespace orvanta {

void MarkSuggestions::read(const QString& path)
{
    m_reading = true;
    // Asked for here: the page may be chosen anew on this thread.
    m_job.start(*this, [this, path, page = CodePage::current()](JobLink& link) {
        ClipTexts texts = readClipTexts(path, page, [&link] { return link.isStopped(); });
        // "this" is used only in what is delivered, which comes only while the object lives.
        link.deliver([this, texts = std::move(texts)] {
            m_reading = false;
            Q_EMIT done(texts);
        });
    });
}

void MarkSuggestions::cancel()
{
    m_job.stop();
    m_reading = false;
}

} // namespace orvanta
