#pragma once

#include "tools/demo/Fleet.h"

#include <string>
#include <vector>

namespace rovanta::demo {

/// A file of the demo office, by its name within one of the office's folders.
struct File {
    std::string name;
    std::string content;
};

/// Pictures, documents and lease templates, each with the rows that name them.
struct Papers {
    std::vector<File> pictures;
    std::vector<File> documents;
    std::vector<File> leases;
    std::vector<TableRows> tables;
};

Papers MakePapers(const Plan& plan, const Fleet& fleet);

/// A page of plain text as a PDF.
std::string PdfPage(const std::string& title, const std::vector<std::string>& lines);
/// A lease agreement with the tags that the merge replaces, under a title of its own.
std::string LeaseTemplate(const std::string& title);

}
