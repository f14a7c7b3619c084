// The archive library's things, owned.
#pragma once

#include <archive.h>
#include <archive_entry.h>
#include <memory>

namespace orvanta {

struct ArchiveFree
{
    void operator()(archive* it) const { archive_free(it); }
    void operator()(archive_entry* it) const { archive_entry_free(it); }
};

using ReaderPointer = std::unique_ptr<archive, ArchiveFree>;
using WriterPointer = std::unique_ptr<archive, ArchiveFree>;
using EntryPointer = std::unique_ptr<archive_entry, ArchiveFree>;

} // namespace orvanta
