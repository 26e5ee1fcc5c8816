"""A template for python-dbusmock: ModemManager as far as calls need it, and what a test does to it.

    python3 -m dbusmock --system --template modem_manager.py
"""

import dbus
from dbusmock import OBJECT_MANAGER_IFACE, mockobject

BUS_NAME = 'org.freedesktop.ModemManager1'
MAIN_OBJ = '/org/freedesktop/ModemManager1'
MAIN_IFACE = 'org.freedesktop.ModemManager1'
SYSTEM_BUS = True
IS_OBJECT_MANAGER = True

TEST_IFACE = 'suite.Test'
MODEM_IFACE = MAIN_IFACE + '.Modem'
VOICE_IFACE = MODEM_IFACE + '.Voice'
CALL_IFACE = MAIN_IFACE + '.Call'
TERMINATED = 7


def load(mock, _parameters):
    mock.seen = []
    mock.failing = ''
    mock.call_count = 0


def note(method, argument=''):
    """Records a call of a method, and fails where the test wants it to."""
    main = mockobject.objects[MAIN_OBJ]
    main.seen.append(f'{method} {argument}'.strip())
    if main.failing == method:
        raise dbus.exceptions.DBusException('no', name=MAIN_IFACE + '.Error.Core.Failed')


def last_call():
    main = mockobject.objects[MAIN_OBJ]
    return mockobject.objects[f'{MAIN_OBJ}/Call/{main.call_count}']


def change(call, state):
    call.EmitSignal(CALL_IFACE, 'StateChanged', 'iiu', [dbus.Int32(0), dbus.Int32(state), dbus.UInt32(0)])


@dbus.service.method(MODEM_IFACE, in_signature='b')
def Enable(_self, _on):
    note('Enable')


@dbus.service.method(VOICE_IFACE, in_signature='a{sv}', out_signature='o')
def CreateCall(self, properties):
    note('CreateCall', properties['number'])
    main = mockobject.objects[MAIN_OBJ]
    main.call_count += 1
    path = f'{MAIN_OBJ}/Call/{main.call_count}'
    main.AddObject(path, CALL_IFACE, {'Number': properties['number']}, [])
    return dbus.ObjectPath(path)


@dbus.service.method(VOICE_IFACE, in_signature='o')
def DeleteCall(_self, path):
    note('DeleteCall')
    mockobject.objects[MAIN_OBJ].RemoveObject(path)


@dbus.service.method(CALL_IFACE)
def Start(_self):
    note('Start')


@dbus.service.method(CALL_IFACE)
def Hangup(self):
    note('Hangup')
    change(self, TERMINATED)


@dbus.service.method(CALL_IFACE, in_signature='s')
def SendDtmf(_self, tone):
    note('SendDtmf', tone)


@dbus.service.method(TEST_IFACE, in_signature='ssb')
def AddModem(self, identifier, model, has_voice):
    path = f'{MAIN_OBJ}/Modem/{identifier}'
    self.AddObject(path, MODEM_IFACE,
                   {'EquipmentIdentifier': identifier, 'Manufacturer': 'Maker', 'Model': model,
                    'OwnNumbers': dbus.Array(['+491234'], signature='s')}, [])
    modem = mockobject.objects[path]
    modem.AddProperties(MODEM_IFACE + '.Modem3gpp', dbus.Dictionary({'OperatorName': 'Net'}, signature='sv'))
    if has_voice:
        modem.AddProperties(VOICE_IFACE, dbus.Dictionary({'EmergencyOnly': False}, signature='sv'))
    self.object_manager_emit_added(path)


@dbus.service.method(TEST_IFACE, in_signature='s')
def Unplug(self, identifier):
    path = f'{MAIN_OBJ}/Modem/{identifier}'
    self.EmitSignal(OBJECT_MANAGER_IFACE, 'InterfacesRemoved', 'oas',
                    [dbus.ObjectPath(path), dbus.Array([MODEM_IFACE], signature='s')])
    self.RemoveObject(path)


@dbus.service.method(TEST_IFACE, in_signature='i')
def ChangeCall(_self, state):
    change(last_call(), state)


@dbus.service.method(TEST_IFACE, in_signature='s')
def Fail(self, method):
    self.failing = method


@dbus.service.method(TEST_IFACE, out_signature='as')
def Seen(self):
    return dbus.Array(self.seen, signature='s')
