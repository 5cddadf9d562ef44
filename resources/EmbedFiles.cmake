# slantwise_embed_files(OUT file...) sets OUT to the sources of an object that holds the files byte for byte, and of the
# table of them that EmbeddedFiles.h declares. A changed file is taken up by the next build. The assembler copies the
# bytes, so a font of 170 kB costs a build nothing.
enable_language(ASM)

function(slantwise_embed_files out)
    set(data "")
    set(declarations "")
    set(rows "")
    set(paths "")
    set(index 0)
    foreach(file IN LISTS ARGN)
        get_filename_component(path ${file} ABSOLUTE)
        get_filename_component(name ${file} NAME_WLE)
        get_filename_component(extension ${file} LAST_EXT)
        string(SUBSTRING ${extension} 1 -1 extension)
        set(symbol slantwise_embedded_${index})
        foreach(edge begin end)
            string(APPEND declarations "extern \"C\" const std::byte ${symbol}_${edge}[];\n")
        endforeach()
        string(APPEND data
            ".hidden ${symbol}_begin\n.hidden ${symbol}_end\n.globl ${symbol}_begin\n.globl ${symbol}_end\n"
            ".balign 16\n${symbol}_begin:\n.incbin \"${path}\"\n${symbol}_end:\n")
        string(APPEND rows
            "    {\"${name}\", \"${extension}\", {${symbol}_begin, ${symbol}_end}},\n")
        list(APPEND paths ${path})
        math(EXPR index "${index} + 1")
    endforeach()

    set(assembly ${CMAKE_CURRENT_BINARY_DIR}/EmbeddedBytes.S)
    set(table ${CMAKE_CURRENT_BINARY_DIR}/EmbeddedFiles.cpp)
    file(CONFIGURE OUTPUT ${assembly} @ONLY CONTENT
        ".section .rodata\n@data@.section .note.GNU-stack,\"\",%progbits\n")
    file(CONFIGURE OUTPUT ${table} @ONLY CONTENT
"#include \"resources/EmbeddedFiles.h\"

@declarations@
namespace QVM_NAMESPACE {

std::vector<BundleFile> embeddedFiles() {
    return {
@rows@    };
}

} // namespace QVM_NAMESPACE
")
    set_source_files_properties(${assembly} PROPERTIES OBJECT_DEPENDS "${paths}")
    set(${out} ${assembly} ${table} PARENT_SCOPE)
endfunction()
