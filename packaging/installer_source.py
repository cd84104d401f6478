"""Writes the description of an installer that wixl compiles."""

import re
import uuid
from pathlib import PurePosixPath
from xml.etree import ElementTree as xml

import control_identity
from contents import BITS

NAMESPACE = uuid.UUID('5f6b2c52-0d0b-4b7e-9a55-3a6f2c1d8e47')

# Which products replace each other. Never to be changed.
UPGRADE_CODES = {'x86': '{6E4A1D0C-93B5-4B1B-8B43-0B8B5B7E2A61}',
                 'x64': '{A0C2F7D4-58E6-4E0B-9D35-7C41F2E6B9D8}'}

MANUFACTURER = 'The Kelvane authors'
CLASSES = 'Software\\Classes\\'
SETTINGS_KEY = r'Software\Kelvane'
SETTINGS_VALUE = 'InstallFolder'


def derived_id(*parts):
    """The same identifier for the same parts, on every machine."""
    return '{%s}' % str(uuid.uuid5(NAMESPACE, '/'.join(parts))).upper()


def product_name(architecture):
    return f'Kelvane ({BITS[architecture]}-bit)'


def file_id(place):
    """The identifier of a file in the tables; what stands there is limited to these characters."""
    readable = re.sub(r'[^A-Za-z0-9_.]', '_', place)[-40:]
    return f'f_{uuid.uuid5(NAMESPACE, place).hex[:8]}_{readable}'


class ShortNames:
    """Gives every name of a folder its 8.3 name, as the tables want them: SHORT|long."""

    def __init__(self):
        self._taken = set()

    def both(self, name):
        if re.fullmatch(r'[A-Za-z0-9_-]{1,8}(\.[A-Za-z0-9_-]{1,3})?', name):
            if name.upper() not in self._taken:
                self._taken.add(name.upper())
                return name
        stem, _, suffix = name.rpartition('.') if '.' in name else (name, '', '')
        stem = re.sub(r'[^A-Z0-9_-]', '', stem.upper())[:5] or 'FILE'
        suffix = re.sub(r'[^A-Z0-9_-]', '', suffix.upper())[:3]
        for number in range(1, 1000):
            short = f'{stem[:7 - len(str(number))]}~{number}' + (f'.{suffix}' if suffix else '')
            if short not in self._taken:
                self._taken.add(short)
                return f'{short}|{name}'
        raise ValueError(f'no short name left for {name}')


def _registry(component, values):
    for key, name, text in values:
        attributes = {'Root': 'HKLM', 'Key': key, 'Type': 'string', 'Value': text}
        if name is not None:
            attributes['Name'] = name
        xml.SubElement(component, 'RegistryValue', attributes)


class InstallerSource:
    """The description of one bitness's installer: its product, folders, files and keys."""

    def __init__(self, architecture, version, identity):
        self._architecture = architecture
        self._identity = identity
        self.conditions = {}  # of components; wixl knows none
        self._components = []
        self._folders = {}
        self._names = {}
        self._wix = xml.Element('Wix', xmlns='http://schemas.microsoft.com/wix/2006/wi')
        self._product = self._make_product(version)
        self._make_folders()

    def _make_product(self, version):
        bits = BITS[self._architecture]
        name = product_name(self._architecture)
        product = xml.SubElement(
            self._wix, 'Product', Id=derived_id('product', self._architecture, version),
            Name=name, Language='1033', Codepage='1252', Version=version,
            Manufacturer=MANUFACTURER, UpgradeCode=UPGRADE_CODES[self._architecture])
        xml.SubElement(product, 'Package', InstallerVersion='200', Compressed='yes',
                       InstallScope='perMachine', Description=f'{name} {version}',
                       Comments=f'The section control for {bits}-bit programs')
        xml.SubElement(product, 'MajorUpgrade', DowngradeErrorMessage=(
            f'A newer version of {name} is installed. Remove it first to install version '
            f'{version}.'))
        xml.SubElement(product, 'Media', Id='1', Cabinet='kelvane.cab', EmbedCab='yes')
        self._condition(product, 'Installed OR VersionNT >= 601',
                        'Kelvane needs Windows 7 or later.')
        if self._architecture == 'x64':
            self._condition(product, 'Installed OR VersionNT64',
                            f'{name} needs 64-bit Windows. Install Kelvane (32-bit) here.')
        for name, value in {'ARPNOMODIFY': '1', 'ARPPRODUCTICON': 'kelvane.ico',
                            'ARPCOMMENTS': f'The section control for {bits}-bit programs'}.items():
            xml.SubElement(product, 'Property', Id=name, Value=value)
        xml.SubElement(product, 'Icon', Id='kelvane.ico', SourceFile='kelvane.ico')
        return product

    @staticmethod
    def _condition(product, condition, message):
        xml.SubElement(product, 'Condition', Message=message).text = condition

    def _make_folders(self):
        target = xml.SubElement(self._product, 'Directory', Id='TARGETDIR', Name='SourceDir')
        programs = {'x86': 'ProgramFilesFolder', 'x64': 'ProgramFiles64Folder'}
        parent = xml.SubElement(target, 'Directory', Id=programs[self._architecture])
        xml.SubElement(target, 'Directory', Id='ProgramMenuFolder')
        self._target = target
        self._folders[PurePosixPath('.')] = xml.SubElement(
            parent, 'Directory', Id='INSTALLDIR', Name='Kelvane')
        self._names[PurePosixPath('.')] = ShortNames()

    def _folder(self, path):
        if path not in self._folders:
            parent = self._folder(path.parent)
            self._folders[path] = xml.SubElement(
                parent, 'Directory', Id='d_' + re.sub(r'[^A-Za-z0-9_.]', '_', str(path)),
                Name=self._names[path.parent].both(path.name))
            self._names[path] = ShortNames()
        return self._folders[path]

    def _component(self, folder, name, guid, wide):
        attributes = {'Id': name, 'Guid': guid}
        if wide:
            attributes['Win64'] = 'yes'
        self._components.append(name)
        return xml.SubElement(folder, 'Component', attributes)

    def add_file(self, place, source):
        """A file as a component of its own; returns the component."""
        path = PurePosixPath(place)
        component = self._component(
            self._folder(path.parent), 'c' + file_id(place)[1:],
            derived_id('component', self._architecture, place), self._architecture == 'x64')
        xml.SubElement(component, 'File', Id=file_id(place), Source=source, KeyPath='yes',
                       Name=self._names[path.parent].both(path.name))
        return component

    def register_control(self, component):
        """The keys that the control's own registration writes; the module is in component."""
        module = f'[#{component.find("File").get("Id")}]'
        own = control_identity.class_values(self._identity, self._architecture, module)
        _registry(component, [(CLASSES + key, name, text) for key, name, text in own])
        xml.SubElement(component, 'RegistryValue', {
            'Root': 'HKLM', 'Key': SETTINGS_KEY, 'Name': SETTINGS_VALUE, 'Type': 'string',
            'Value': '[INSTALLDIR]'})
        self._registry_component('CommonLibrary', control_identity.library_values(self._identity))
        names = control_identity.name_values(self._identity)
        self._registry_component('CommonNames', names)
        if self._architecture == 'x64':
            self._registry_component('SeparateNames', names, 'WIDENAMES AND NOT NARROWNAMES',
                                     wide=True)

    def _registry_component(self, name, values, condition=None, wide=False):
        """Keys without a file. The common ones are one component of both installers: what both
        bitnesses share goes with the last of them. Where 64-bit programs find other names, the
        64-bit installer has these besides."""
        component = self._component(self._target, name, derived_id('component', name), wide)
        if condition:
            self.conditions[name] = condition
        _registry(component, [(CLASSES + key, value, text) for key, value, text in values])
        component.find('RegistryValue').set('KeyPath', 'yes')

    def add_shortcut(self, component):
        """An entry of the start menu for the program in component."""
        name = product_name(self._architecture)
        xml.SubElement(component, 'Shortcut', Id='StartMenu', Directory='ProgramMenuFolder',
                       Name=f'KELVAN{BITS[self._architecture]}|{name}',
                       Target=f'[#{component.find("File").get("Id")}]',
                       WorkingDirectory='INSTALLDIR',
                       Description='Draws vertical sections of gridded data sets')

    def text(self):
        feature = xml.SubElement(self._product, 'Feature', Id='Kelvane', Level='1',
                                 Title='Kelvane', Absent='disallow', AllowAdvertise='no')
        for name in self._components:
            xml.SubElement(feature, 'ComponentRef', Id=name)
        xml.indent(self._wix)
        return xml.tostring(self._wix, encoding='unicode', xml_declaration=True) + '\n'
