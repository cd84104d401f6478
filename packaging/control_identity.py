"""What the control is called and registered as, read from the files that define it."""

import re
from dataclasses import dataclass

# The component categories of the control: how form designers find it and what it can be saved to.
CATEGORIES = (
    '{40FC6ED4-2438-11CF-A3DB-080036F12502}',  # Control
    '{0DE86A53-2BAA-11CF-A229-00AA003D7352}',  # PersistsToStreamInit
    '{0DE86A57-2BAA-11CF-A229-00AA003D7352}',  # PersistsToPropertyBag
    '{0DE86A52-2BAA-11CF-A229-00AA003D7352}',  # PersistsToStorage
)

# The marshalling that the system has for automation interfaces.
TYPE_LIBRARY_PROXY = '{00020424-0000-0000-C000-000000000046}'
DISPATCH_PROXY = '{00020420-0000-0000-C000-000000000046}'

MISC_STATUS = {
    'OLEMISC_RECOMPOSEONRESIZE': 0x1, 'OLEMISC_ONLYICONIC': 0x2,
    'OLEMISC_INSERTNOTREPLACE': 0x4, 'OLEMISC_STATIC': 0x8,
    'OLEMISC_CANTLINKINSIDE': 0x10, 'OLEMISC_INSIDEOUT': 0x80,
    'OLEMISC_ACTIVATEWHENVISIBLE': 0x100, 'OLEMISC_INVISIBLEATRUNTIME': 0x400,
    'OLEMISC_ACTSLIKEBUTTON': 0x1000, 'OLEMISC_NOUIACTIVATE': 0x4000,
    'OLEMISC_ALIGNABLE': 0x8000, 'OLEMISC_SIMPLEFRAME': 0x10000,
    'OLEMISC_SETCLIENTSITEFIRST': 0x20000,
}

LIBRARY_FLAGS = {'restricted': 1, 'control': 2, 'hidden': 4}


@dataclass(frozen=True)
class Identity:
    """The control's names and identifiers; identifiers in braces and upper case."""
    class_id: str
    library_id: str
    library_version: str
    library_text: str
    library_flags: int
    interface_id: str
    events_id: str
    user_type: str
    prog_id: str
    versioned_prog_id: str
    version: str
    misc_status: int


def _found(pattern, text):
    match = re.search(pattern, text)
    if not match:
        raise ValueError(f'the definition of the control has nothing for {pattern}')
    return match.group(1)


def _attributes(declaration, text):
    """The attribute block in front of a declaration; blocks do not nest."""
    return _found(r'\[([^\[\]]*)\]\s*' + declaration, text)


def _identifier(attributes):
    return '{%s}' % _found(r'uuid\(([0-9A-Fa-f-]+)\)', attributes).upper()


def read_identity(root):
    """Reads the interface description and identity.h below the project's root."""
    description = (root / 'src/activex/KelvaneCtl.idl').read_text(encoding='utf-8')
    names = (root / 'src/activex/identity.h').read_text(encoding='utf-8')
    library = _attributes(r'library Kelvane\b', description)
    bare = re.sub(r'"[^"]*"', '', library)
    misc = _found(r'kMiscStatus =([^;]+);', names)
    return Identity(
        class_id=_identifier(_attributes(r'coclass KelvaneCtl\b', description)),
        library_id=_identifier(library),
        library_version=_found(r'version\(([0-9.]+)\)', library),
        library_text=_found(r'helpstring\("([^"]*)"', library),
        library_flags=sum(bit for name, bit in LIBRARY_FLAGS.items()
                          if re.search(rf'\b{name}\b', bare)),
        interface_id=_identifier(_attributes(r'interface _KelvaneCtl\b', description)),
        events_id=_identifier(_attributes(r'dispinterface __KelvaneCtl\b', description)),
        user_type=_found(r'kUserType\[\] = L"([^"]+)"', names),
        prog_id=_found(r'kProgId\[\] = L"([^"]+)"', names),
        versioned_prog_id=_found(r'kVersionedProgId\[\] = L"([^"]+)"', names),
        version=_found(r'kVersion\[\] = L"([^"]+)"', names),
        misc_status=sum(MISC_STATUS[name] for name in re.findall(r'OLEMISC_[A-Z]+', misc)))


def class_values(identity, architecture, module):
    """What belongs to one bitness: (key below Software\\Classes, value name or None, text)."""
    i = identity
    key = 'CLSID\\' + i.class_id
    platform = {'x86': 'win32', 'x64': 'win64'}[architecture]
    values = [
        (key, None, i.user_type),
        (key + r'\ProgID', None, i.versioned_prog_id),
        (key + r'\VersionIndependentProgID', None, i.prog_id),
        (key + r'\InprocServer32', None, module),
        (key + r'\InprocServer32', 'ThreadingModel', 'Apartment'),
        (key + r'\TypeLib', None, i.library_id),
        (key + r'\Version', None, i.version),
        (key + r'\MiscStatus', None, '0'),
        (key + r'\MiscStatus\1', None, str(i.misc_status)),
        (key + r'\Control', None, ''),
        (key + r'\Programmable', None, ''),
        (key + r'\ToolboxBitmap32', None, module + ',1'),
    ]
    values += [(key + '\\Implemented Categories\\' + category, None, '') for category in CATEGORIES]
    for identifier, name, proxy in ((i.interface_id, '_KelvaneCtl', TYPE_LIBRARY_PROXY),
                                    (i.events_id, '__KelvaneCtl', DISPATCH_PROXY)):
        its = 'Interface\\' + identifier
        values += [(its, None, name), (its + r'\ProxyStubClsid32', None, proxy),
                   (its + r'\TypeLib', None, i.library_id),
                   (its + r'\TypeLib', 'Version', i.library_version)]
    values.append((f'{_library_key(i)}\\0\\{platform}', None, module))
    return values


def name_values(identity):
    """The names that programs create the control by; both bitnesses have the same."""
    i = identity
    return [
        (i.versioned_prog_id, None, i.user_type),
        (i.versioned_prog_id + r'\CLSID', None, i.class_id),
        (i.prog_id, None, i.user_type),
        (i.prog_id + r'\CLSID', None, i.class_id),
        (i.prog_id + r'\CurVer', None, i.versioned_prog_id),
    ]


def library_values(identity):
    """The type library's own description; its modules are entered by bitness."""
    library = _library_key(identity)
    return [
        (library, None, identity.library_text),
        (library + r'\FLAGS', None, str(identity.library_flags)),
        (library + r'\HELPDIR', None, ''),
    ]


def _library_key(identity):
    return f'TypeLib\\{identity.library_id}\\{identity.library_version}'
