#pragma once
// The program's command line: the arguments as split, the joined view the
// switches are recognised on, and the rules that complete bare file names.
//
//   (nothing)                  the user's default input file is loaded
//   <file>                     an input (.i64) or output (.o64) file is opened
//   /run:<input> [<output>]    calculate one input file and save the results
//   /batch:<batch file>        calculate every job of a batch file
//   /print:<output file>       print an output file
//
// Switches are recognised ignoring letter case. Because an absolute path
// also begins with "/" here, only these three prefixes make a switch;
// everything else is a file name. "--run <input>" and "--run=<input>" (and
// the same for --batch and --print) are accepted as the switches.
#include <string>
#include <string_view>
#include <vector>

namespace tormel {

// The longest joined command line.
inline constexpr size_t kJoinedArgumentsLimit = 8192;
// The longest path a completed name may have.
inline constexpr size_t kMaxPathChars = 260;

struct CommandLine {
    std::vector<std::string> arguments;  // argument n (from 1) at n - 1
};

// Argument n (from 1), empty when there is none; for n = 0 the joined
// arguments: every argument followed by one blank, at most 8192 characters,
// blanks trimmed at both ends.
std::string CommandLineArgument(const CommandLine& line, int n);

enum class CommandLineAction {
    None,      // no arguments
    OpenFile,  // argument 1 names a file to open
    Run,       // "/run:"
    Batch,     // "/batch:"
    Print,     // "/print:"
};

// What the command line asks for (only the first switch counts).
CommandLineAction ClassifyCommandLine(const CommandLine& line);

// The command line with a leading "--run X" / "--run=X" (also --batch,
// --print) written as the switch "/run:X".
CommandLine NormaliseCommandLine(std::vector<std::string> arguments);

// true when `a` ends with `extension`, ignoring letter case.
bool HasExtension(std::string_view path, std::string_view extension);

// The file-name part of a path (after the last "/").
std::string FileNamePart(std::string_view path);

// A name without a folder part gets `folder` (ending with "/") in front, as
// long as the result fits in 260 characters; any other name stays.
std::string CompleteWithFolder(const std::string& name, const std::string& folder);

// The file name with its extension (from the last "." of the file-name part)
// replaced by `extension`, or `extension` appended when it has none.
std::string ReplaceExtension(const std::string& name, std::string_view extension);

}  // namespace tormel
