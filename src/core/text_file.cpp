#include "core/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include <algorithm>
#include <atomic>
#include <bit>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>

#include "core/utf16.h"

namespace tormel {

namespace fs = std::filesystem;

std::optional<std::string> ReadBinaryFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) return std::nullopt;
    struct stat st {};
    std::optional<std::string> bytes;
    if (fstat(fd, &st) == 0 && !S_ISDIR(st.st_mode)) {
        // the size is a hint: a file that grows or shrinks meanwhile is read
        // to its end (one byte more, so that the end is found without growing)
        std::string data(static_cast<size_t>(std::max<off_t>(st.st_size, 0)) + 1, '\0');
        size_t used = 0;
        for (;;) {
            if (used == data.size()) data.resize(used + 4096);
            const ssize_t n = ::read(fd, data.data() + used, data.size() - used);
            if (n > 0) {
                used += static_cast<size_t>(n);
            } else if (n == 0) {
                data.resize(used);
                bytes = std::move(data);
                break;
            } else if (errno != EINTR) {
                break;
            }
        }
    } else {
        errno = EISDIR;
    }
    ::close(fd);
    return bytes;
}

bool FileExists(const std::string& path) {
    std::error_code ec;
    return fs::is_regular_file(path, ec);
}

namespace {

std::optional<std::string> ReadBytes(const std::string& path, FileError* error) {
    auto bytes = ReadBinaryFile(path);
    if (!bytes && error) *error = {path, std::string("cannot open the file: ") + std::strerror(errno ? errno : ENOENT)};
    return bytes;
}

bool StartsWith(std::string_view bytes, std::string_view prefix) { return bytes.substr(0, prefix.size()) == prefix; }

// CR LF becomes LF; a lone CR is kept.
std::u16string JoinLineEnds(std::u16string_view in) {
    std::u16string text;
    text.reserve(in.size());
    for (char16_t c : in) {
        if (c == u'\n' && !text.empty() && text.back() == u'\r')
            text.back() = u'\n';
        else
            text += c;
    }
    return text;
}

// The little-endian units after an optional byte-order mark, CR LF joined to
// LF as JoinLineEnds does, in place.
std::u16string DecodeUtf16Le(std::string_view b) {
    const size_t start = StartsWith(b, "\xFF\xFE") ? 2 : 0;
    const size_t count = (b.size() - start) / 2;
    std::u16string units(count, u'\0');
    char16_t* const begin = units.data();
    if constexpr (std::endian::native == std::endian::little) {
        std::memcpy(begin, b.data() + start, 2 * count);
    } else {
        for (size_t i = 0; i < count; ++i)
            begin[i] = static_cast<char16_t>(static_cast<unsigned char>(b[start + 2 * i]) |
                                             (static_cast<unsigned char>(b[start + 2 * i + 1]) << 8));
    }
    // each CR LF loses its CR: the text between them moves up by one unit
    // more each time (nothing moves before the first)
    const std::u16string_view text(begin, count);
    size_t cr = FindUnit(text, u'\r'), kept = cr;
    while (cr != std::u16string_view::npos) {
        const size_t next = FindUnit(text, u'\r', cr + 1);
        const size_t end = next == std::u16string_view::npos ? count : next;
        const size_t from = cr + 1 < count && text[cr + 1] == u'\n' ? cr + 1 : cr;  // the CR dropped or kept
        std::memmove(begin + kept, begin + from, (end - from) * sizeof(char16_t));
        kept += end - from;
        cr = next;
    }
    if (kept != std::u16string_view::npos) units.resize(kept);
    return units;
}

}  // namespace

std::optional<std::u16string> ReadUtf16File(const std::string& path, FileError* error) {
    auto bytes = ReadBytes(path, error);
    if (!bytes) return std::nullopt;
    return DecodeUtf16Le(*bytes);
}

std::optional<std::u16string> ReadUtf16OrUtf8File(const std::string& path, FileError* error) {
    auto bytes = ReadBytes(path, error);
    if (!bytes) return std::nullopt;
    const std::string_view b(*bytes);
    const bool plainUtf8 = !StartsWith(b, "\xFF\xFE") && b.find('\0') == std::string_view::npos && IsValidUtf8(b);
    if (!plainUtf8) return DecodeUtf16Le(b);
    return JoinLineEnds(Utf8ToUtf16(StartsWith(b, "\xEF\xBB\xBF") ? b.substr(3) : b));
}

namespace {

// Writes all of `bytes` to `fd`; false when the kernel refuses some.
bool WriteAll(int fd, std::string_view bytes) {
    for (size_t done = 0; done < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.data() + done, bytes.size() - done);
        if (n > 0)
            done += static_cast<size_t>(n);
        else if (n >= 0 || errno != EINTR)
            return false;
    }
    return true;
}

// A hidden name beside the target, unique within the process (threads may
// write at once) and across processes.
std::string TemporaryName(const std::string& path, size_t nameAt) {
    static std::atomic<uint32_t> count{0};
    return path.substr(0, nameAt) + "." + path.substr(nameAt) + ".tmp" + std::to_string(getpid()) + "-" +
           std::to_string(count.fetch_add(1));
}

#if defined(__linux__) && defined(O_TMPFILE)
enum class Written { Done, NotTried, WriteFailed, ReplaceFailed };

// The bytes go into a file without a name in the target's folder. A new
// target then gets its name in one step: one change to the folder instead of
// two (a create and a rename), which is what parallel batch jobs writing into
// one folder wait for. An existing target is replaced through a temporary
// name (`tmp`, set while it exists) and a rename, as the named way does.
// NotTried when the system offers no unnamed file here or cannot name it
// (no /proc, say): then the named way must do it all.
Written WriteThroughUnnamedFile(const std::string& path, size_t nameAt, std::string_view bytes, std::string& tmp) {
    const std::string folder = nameAt == 0 ? std::string(".") : path.substr(0, nameAt);
    const int fd = ::open(folder.c_str(), O_TMPFILE | O_WRONLY | O_CLOEXEC, 0666);
    if (fd < 0) return Written::NotTried;
    const bool written = WriteAll(fd, bytes);
    char self[32];
    std::snprintf(self, sizeof self, "/proc/self/fd/%d", fd);
    auto linkAs = [&self](const std::string& name) {
        return ::linkat(AT_FDCWD, self, AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    bool linked = written && linkAs(path);
    const bool replacing = written && !linked && errno == EEXIST;
    if (replacing) {
        tmp = TemporaryName(path, nameAt);
        linked = linkAs(tmp);
        if (!linked) tmp.clear();
    }
    const bool closed = ::close(fd) == 0;
    if (!written || (linked && !closed)) return Written::WriteFailed;
    if (!linked) return Written::NotTried;
    if (replacing && std::rename(tmp.c_str(), path.c_str()) != 0) return Written::ReplaceFailed;
    return Written::Done;
}
#endif

}  // namespace

bool WriteFileAtomically(const std::string& path, std::string_view bytes, FileError* error) {
    const size_t nameAt = path.rfind('/') + 1;  // 0 without a folder
    std::string tmp;  // a temporary file's name while it exists
    auto fail = [&](const std::string& what) {
        if (error) *error = {path, what + ": " + std::strerror(errno ? errno : EIO)};
        if (!tmp.empty()) {
            std::error_code ec;
            fs::remove(tmp, ec);
        }
        return false;
    };
    errno = 0;
#if defined(__linux__) && defined(O_TMPFILE)
    switch (WriteThroughUnnamedFile(path, nameAt, bytes, tmp)) {
        case Written::Done: return true;
        case Written::WriteFailed: return fail("cannot write the file");
        case Written::ReplaceFailed: return fail("cannot replace the file");
        case Written::NotTried: break;
    }
#endif
    // the named way: a temporary file, then a rename that replaces the
    // target in one step, so that a reader sees the old file or the new one
    tmp = TemporaryName(path, nameAt);
    errno = 0;
    const int fd = ::open(tmp.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (fd < 0) return fail("cannot create the file");
    const bool written = WriteAll(fd, bytes);
    if (!(::close(fd) == 0 && written)) return fail("cannot write the file");
    if (std::rename(tmp.c_str(), path.c_str()) != 0) return fail("cannot replace the file");
    return true;
}

namespace {

// Room for the text of `units` code units with the byte-order mark and a
// carriage return for some of the lines.
std::string Utf16Buffer(size_t units) {
    std::string bytes;
    bytes.reserve(2 + units * 2 + units / 16);
    bytes += static_cast<char>(0xFF);
    bytes += static_cast<char>(0xFE);
    return bytes;
}

// One code unit as little-endian bytes; a line feed gets its carriage return
// first, as a text-mode write gives it.
void PutTextUnit(std::string& bytes, char16_t c) {
    if (c == u'\n') {
        bytes += '\r';
        bytes += '\0';
    }
    bytes += static_cast<char>(c & 0xFF);
    bytes += static_cast<char>(c >> 8);
}

}  // namespace

bool WriteUtf16File(const std::string& path, std::u16string_view text, FileError* error) {
    std::string bytes = Utf16Buffer(text.size());
    for (char16_t c : text) PutTextUnit(bytes, c);
    return WriteFileAtomically(path, bytes, error);
}

namespace {

// Four bytes as four little-endian 16-bit units with zero high bytes (on a
// little-endian machine, as the file wants them).
uint64_t SpreadBytes(uint32_t bytes) {
    uint64_t x = bytes;
    x = (x | (x << 16)) & 0x0000FFFF0000FFFFull;
    x = (x | (x << 8)) & 0x00FF00FF00FF00FFull;
    return x;
}

// Widens the run of ASCII without a line feed that starts `text` into
// UTF-16LE at `out`, sixteen or eight bytes at a time, and returns its
// length; a tail shorter than eight bytes is left to the caller. `out` must
// have room for 2 x text.size() bytes.
size_t WidenPlainAscii(std::string_view text, char* out) {
    size_t run = 0;
#if defined(__SSE2__)
    const __m128i lineFeeds = _mm_set1_epi8('\n');
    const __m128i zero = _mm_setzero_si128();
    for (; run + 16 <= text.size(); run += 16) {
        const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text.data() + run));
        // the high bit of a byte above ASCII or of a line feed's match
        const int stops = _mm_movemask_epi8(_mm_or_si128(bytes, _mm_cmpeq_epi8(bytes, lineFeeds)));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 2 * run), _mm_unpacklo_epi8(bytes, zero));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(out + 2 * run + 16), _mm_unpackhi_epi8(bytes, zero));
        if (stops != 0) return run + static_cast<size_t>(std::countr_zero(static_cast<unsigned>(stops)));
    }
#endif
    constexpr uint64_t kHighBits = 0x8080808080808080ull;
    constexpr uint64_t kOnes = 0x0101010101010101ull;
    constexpr uint64_t kLineFeeds = 0x0A0A0A0A0A0A0A0Aull;
    for (; run + 8 <= text.size(); run += 8) {
        uint64_t word;
        std::memcpy(&word, text.data() + run, 8);
        const uint64_t lineFeed = word ^ kLineFeeds;  // a zero byte where a line feed was
        if ((word & kHighBits) != 0 || ((lineFeed - kOnes) & ~lineFeed & kHighBits) != 0) break;
        if constexpr (std::endian::native == std::endian::little) {
            const uint64_t units[2] = {SpreadBytes(static_cast<uint32_t>(word)),
                                       SpreadBytes(static_cast<uint32_t>(word >> 32))};
            std::memcpy(out + 2 * run, units, 16);
        } else {
            for (size_t b = run; b < run + 8; ++b) {
                out[2 * b] = text[b];
                out[2 * b + 1] = '\0';
            }
        }
    }
    return run;
}

}  // namespace

bool WriteUtf16File(const std::string& path, std::string_view utf8Text, FileError* error) {
    // Room for the worst case (a line feed: one byte in, four out), filled
    // through a pointer: runs of ASCII without a line feed, nearly all of
    // what is written, are widened by blocks; a line feed gets its carriage
    // return; anything else goes through the decoder, as ForEachUtf16Unit
    // splits it (no line feed among it).
    std::unique_ptr<char[]> buffer(new char[2 + 4 * utf8Text.size()]);
    char* out = buffer.get();
    *out++ = static_cast<char>(0xFF);
    *out++ = static_cast<char>(0xFE);
    for (size_t i = 0; i < utf8Text.size();) {
        const size_t run = WidenPlainAscii(utf8Text.substr(i), out);
        out += 2 * run;
        i += run;
        if (i == utf8Text.size()) break;
        const char c = utf8Text[i];
        if (static_cast<unsigned char>(c) < 0x80) {
            if (c == '\n') {
                *out++ = '\r';
                *out++ = '\0';
            }
            *out++ = c;
            *out++ = '\0';
            ++i;
            continue;
        }
        PutUtf16Units(DecodeUtf8(utf8Text, i), [&out](char16_t unit) {
            *out++ = static_cast<char>(unit & 0xFF);
            *out++ = static_cast<char>(unit >> 8);
        });
    }
    return WriteFileAtomically(path, std::string_view(buffer.get(), static_cast<size_t>(out - buffer.get())), error);
}

}  // namespace tormel
