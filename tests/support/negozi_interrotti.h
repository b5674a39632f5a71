#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <string>

namespace sortimetra::prove {

// What programs that were stopped while they wrote a native file leave. Needs SQLite to link with.

/// Runs statements on a native file; false if one fails.
inline bool esegui_sql(sqlite3* base, const std::string& sql) {
    return sqlite3_exec(base, sql.c_str(), nullptr, nullptr, nullptr) == SQLITE_OK;
}

/// Makes a file one that any tool may change: without what tells that it was changed.
inline bool togli_conti(const std::filesystem::path& file) {
    sqlite3* base = nullptr;
    const bool fatto = sqlite3_open(file.c_str(), &base) == SQLITE_OK &&
                       esegui_sql(base,
                                  "DROP TABLE IF EXISTS impronte; PRAGMA application_id=0;"
                                  "PRAGMA user_version=0");
    sqlite3_close(base);
    return fatto;
}

/// Begins to change a native file and is stopped: the file and what stands beside it as they are then.
/// `modo` is "WAL" (the change is made, but only in the log) or "DELETE" (half of it is in the file, and the
/// journal holds what was there).
inline bool interrompi(const std::filesystem::path& file, const std::string& modo, const std::string& sql) {
    const bool registro = modo == "WAL";
    auto lavoro = file;
    lavoro += ".lavoro";
    std::filesystem::rename(file, lavoro);
    sqlite3* base = nullptr;
    const bool fatto = sqlite3_open(lavoro.c_str(), &base) == SQLITE_OK &&
                       esegui_sql(base, "PRAGMA journal_mode=" + modo +
                                            "; PRAGMA wal_autocheckpoint=0; PRAGMA cache_size=1") &&
                       esegui_sql(base, registro ? sql : "BEGIN; " + sql);
    for (const std::string& finale : {std::string{}, std::string{"-wal"}, std::string{"-journal"}}) {
        auto da = lavoro;
        da += finale;
        auto a = file;
        a += finale;
        if (std::filesystem::exists(da)) std::filesystem::copy_file(da, a);
    }
    sqlite3_close(base);
    for (const std::string& finale :
         {std::string{}, std::string{"-wal"}, std::string{"-journal"}, std::string{"-shm"}}) {
        auto da = lavoro;
        da += finale;
        std::filesystem::remove(da);
    }
    auto accanto = file;
    accanto += registro ? "-wal" : "-journal";
    return fatto && std::filesystem::exists(accanto) && std::filesystem::file_size(accanto) > 0;
}

}  // namespace sortimetra::prove
