// What Qt doesn't see to about the file in which it keeps the settings.
#pragma once

#include <string>
#include <tuple>

namespace quillbox {

// Makes the folder and the file as needed and takes every right away that others than the owner
// have on either, before anything secret goes in. Rights are only ever taken: what is read-only
// stays so.
void KeepForOwnerAlone(const std::string& path);

// Tells whether the file was replaced between two moments: then its marks differ.
using FileMark = std::tuple<unsigned long long, unsigned long long, long long, long long>;
FileMark MarkOf(const std::string& path);

}  // namespace quillbox
