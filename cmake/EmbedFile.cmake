# cmake -DFROM=file -DTO=file.cpp -DNAME=function -DHEADER=header -DNAMESPACE=namespace -P EmbedFile.cmake
# Writes a source file with a function that returns the bytes of the file.
file(READ "${FROM}" bytes HEX)
string(REGEX REPLACE "(................................)" "\\1\n    " bytes "${bytes}")
string(REGEX REPLACE "([0-9a-f][0-9a-f])" "0x\\1," bytes "${bytes}")
file(WRITE "${TO}" "#include \"${HEADER}\"

namespace ${NAMESPACE} {

std::string_view ${NAME}()
{
    static constexpr unsigned char kBytes[] = {
    ${bytes}
    };
    return {reinterpret_cast<const char *>(kBytes), sizeof kBytes};
}

} // namespace ${NAMESPACE}
")
