# Makes the manifest for hosts that do without registration. What it says about the control is read
# from the two places that define it: the interface description and identity.h.
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS KelvaneCtl.idl identity.h)
file(READ KelvaneCtl.idl description)
file(READ identity.h identity)

# kelvane_find(VARIABLE TEXT PATTERN): what the pattern's parentheses enclose, which must be there.
function(kelvane_find variable text pattern)
  if(NOT text MATCHES "${pattern}")
    message(FATAL_ERROR "The control's definition has nothing for ${variable}")
  endif()
  set(${variable} "${CMAKE_MATCH_1}" PARENT_SCOPE)
endfunction()

# An attribute block has no other block in it, so the identifier before a name is that name's.
set(attributes "uuid\\(([0-9A-F-]+)\\)[^]]*\\][ \t\r\n]*")
kelvane_find(KELVANE_LIBRARY_ID "${description}" "${attributes}library Kelvane")
kelvane_find(KELVANE_LIBRARY_VERSION "${description}" "version\\(([0-9.]+)\\)")
kelvane_find(KELVANE_INTERFACE_ID "${description}" "${attributes}interface _KelvaneCtl")
kelvane_find(KELVANE_CLASS_ID "${description}" "${attributes}coclass KelvaneCtl")
kelvane_find(KELVANE_USER_TYPE "${identity}" "kUserType\\[\\] = L\"([^\"]+)\"")
kelvane_find(KELVANE_PROGID "${identity}" "kProgId\\[\\] = L\"([^\"]+)\"")
kelvane_find(KELVANE_VERSIONED_PROGID "${identity}" "kVersionedProgId\\[\\] = L\"([^\"]+)\"")

kelvane_find(flags "${identity}" "kMiscStatus = ([A-Z_| \t\r\n]+);")
string(REGEX MATCHALL "OLEMISC_[A-Z]+" flags "${flags}")
list(TRANSFORM flags REPLACE "OLEMISC_" "")
string(TOLOWER "${flags}" flags)
list(JOIN flags "," KELVANE_MISC_STATUS)

if(KELVANE_BITS EQUAL 32)
  set(KELVANE_ARCHITECTURE x86)
else()
  set(KELVANE_ARCHITECTURE amd64)
endif()
configure_file(KelvaneCtl.manifest.in ${CMAKE_BINARY_DIR}/KelvaneCtl.manifest @ONLY)
