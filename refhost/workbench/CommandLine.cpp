#include "refhost/workbench/CommandLine.h"

#include <charconv>

namespace norvex {

namespace {

void readView(const std::string& value, CommandLine& line) {
    if (value == "processes") {
        line.view = StartView::Processes;
    } else if (value == "case") {
        line.view = StartView::Case;
    } else if (value == "none") {
        line.view = StartView::None;
    } else {
        line.mistake = "There is no view \"" + value + "\".";
    }
}

void readLanguage(const std::string& value, CommandLine& line) {
    std::int16_t code = 0;
    const auto [end, failure] = std::from_chars(value.data(), value.data() + value.size(), code);
    if (failure == std::errc() && end == value.data() + value.size()) {
        line.language = code;
    } else {
        line.mistake = "The language is given as a number, not as \"" + value + "\".";
    }
}

void readOption(const std::string& option, const std::string& value, CommandLine& line) {
    if (option == "--kb") {
        line.knowledgeBase = value;
    } else if (option == "--view") {
        readView(value, line);
    } else if (option == "--screenshot-ready") {
        line.readyFile = value;
    } else if (option == "--user") {
        line.user = value;
    } else if (option == "--language") {
        readLanguage(value, line);
    } else {
        line.mistake = "There is no option \"" + option + "\".";
    }
}

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine line;
    for (std::size_t at = 0; at < arguments.size() && line.mistake.empty(); at += 2) {
        if (arguments[at] == "--help") {
            line.help = true;
            return line;
        }
        if (at + 1 == arguments.size()) {
            line.mistake = "The option \"" + arguments[at] + "\" lacks its value or does not exist.";
        } else {
            readOption(arguments[at], arguments[at + 1], line);
        }
    }
    return line;
}

const char* commandLineHelp() {
    return "Workbench [options]\n\n"
           "--kb FILE\tthe knowledge base; it is created when it is missing, its folder is not\n"
           "--view VIEW\tthe first view: processes, case or none\n"
           "--user NAME\tthe user whose rights count\n"
           "--language CODE\t1 English, 2 German, 3 French, 4 Italian, 5 Spanish, 6 Japanese, 7 Chinese\n"
           "--screenshot-ready FILE\twritten once the first view has been painted";
}

}  // namespace norvex
