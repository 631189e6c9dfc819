#pragma once
// A failure of the input file reader: the language key of section "Input"
// that names it and, where one belongs to it, the offending line.
#include <string>

namespace tormel {

class Language;

struct InputFileError {
    std::string key;         // "ErrorOpen1" ... "ErrorOpen5", "ErrorNumber", "ErrorDuplicate", ...
    bool hasLine = false;    // the message quotes `line`
    std::string line;        // the offending line as the message quotes it
    std::string path;        // the file read; empty for text read from memory
    int lineNumber = 0;      // 1-based line of the file; 0 when not known
    int earlierLineNumber = 0;  // a component given twice: where it was given first
    std::string earlierLine;
    std::string detail;      // our own English detail (e.g. why a file could not be read); may be empty
};

// The message text: "\n" + Input/key, then where in the file (path and line
// number, as far as known), then "\n(" + line + ")" when the error quotes a
// line (the earlier line first for a component given twice), then "\n" +
// detail when there is one.
std::string InputFileErrorText(const Language& language, const InputFileError& error);

}  // namespace tormel
