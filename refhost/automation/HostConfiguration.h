#pragma once

#include <cstdint>
#include <string>

#include "refhost/windows/HostTexts.h"

/// What the objects of this library have in common inside one process: which knowledge base, which user,
/// which language. It stands in the environment of the process, where whoever starts the host may set it too.
namespace norvex::configuration {

/// %NORVEX_KNOWLEDGE_BASE%, else the registry value KnowledgeBase of the current user's
/// Software\Orvane\Norvex\Config, else %LOCALAPPDATA%\Norvex\knowledge.db.
std::string knowledgeBaseFile();
/// The last of these, whose folder is made when the file is first opened. No other folder is: a mistyped path
/// would otherwise become an empty knowledge base somewhere.
std::string defaultKnowledgeBaseFile();
void setKnowledgeBaseFile(const std::string& path);

/// %NORVEX_USER%, else "Administrator".
std::string currentUser();
void setCurrentUser(const std::string& name);

/// %NORVEX_LANGUAGE%, else the registry value LanguageOption of the same key, else English.
std::int16_t languageCode();
void setLanguageCode(std::int16_t code);

/// Code 70 or 71: %NORVEX_UNIT%, else metric.
std::int16_t currentUnit();
void setCurrentUnit(std::int16_t unit);

/// Where people keep process files, without a trailing "\": %NORVEX_PROCESS_FOLDER%, else Documents\Norvex of
/// the user. It is made when it is missing.
std::string processFolder();

/// Makes the folders above a file that are missing. What cannot be made is reported by the opening of the
/// file, which names it.
void makeFolderOf(const std::string& path);

/// The folder of this library, with its trailing "\".
std::string installationFolder();

/// The texts of the library's windows in the language of this moment.
HostTexts texts();

}  // namespace norvex::configuration
