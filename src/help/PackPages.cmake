# Writes a source file that holds the help pages: cmake -DFOLDER=docs/help -DOUTPUT=HelpPages.cpp -P PackPages.cmake
file(READ ${FOLDER}/contents.txt contents)
file(GLOB pages ${FOLDER}/*.md)
list(SORT pages)

set(packed "")
foreach(page ${pages})
  file(READ ${page} text)
  get_filename_component(key ${page} NAME_WE)
  string(APPEND packed "    {\"${key}\", R\"help(${text})help\"},\n")
endforeach()

file(WRITE ${OUTPUT} "#include \"help/HelpPages.h\"

namespace {

constexpr PackedPage kPages[] = {
${packed}};

}  // namespace

std::span<const PackedPage> PackedPages()
{
    return kPages;
}

std::string_view PackedContents()
{
    return R\"help(${contents})help\";
}
")
