// The fields of the player library's answers.
#pragma once

#include <QString>

#include <mpv/client.h>

#include <cstring>

namespace orvanta {

/// Null where the map has no such field, or is none.
[[nodiscard]] inline const mpv_node* fieldOf(const mpv_node& map, const char* name)
{
    for (int i = 0; map.format == MPV_FORMAT_NODE_MAP && i < map.u.list->num; ++i) {
        if (std::strcmp(map.u.list->keys[i], name) == 0) {
            return &map.u.list->values[i];
        }
    }
    return nullptr;
}

/// Empty where there is no such text.
[[nodiscard]] inline QString textOf(const mpv_node& map, const char* name)
{
    const mpv_node* field = fieldOf(map, name);
    return field != nullptr && field->format == MPV_FORMAT_STRING
               ? QString::fromUtf8(field->u.string)
               : QString();
}

/// 0 where there is no such number.
[[nodiscard]] inline qint64 numberOf(const mpv_node& map, const char* name)
{
    const mpv_node* field = fieldOf(map, name);
    return field != nullptr && field->format == MPV_FORMAT_INT64 ? field->u.int64 : 0;
}

[[nodiscard]] inline bool isSet(const mpv_node& map, const char* name)
{
    const mpv_node* field = fieldOf(map, name);
    return field != nullptr && field->format == MPV_FORMAT_FLAG && field->u.flag != 0;
}

} // namespace orvanta
