#!/usr/bin/python3
"""A stand-in for BlueZ and obexd on the buses of the environment: BlueZ (the
bluez5 template of python3-dbusmock) with one adapter and one paired device on
the system bus, obexd on the session bus answering CreateSession and the
session's SendFile. The calls are logged to LOG. Prints "ready" when both
answer, then runs until killed.

usage: bluez_mock.py LOG [--no-adapter]"""
import subprocess
import sys
import time

import dbus

PYTHON = '/usr/bin/python3'
SESSION = '/org/bluez/obex/client/session0'
SEND_FILE = ('ret = (dbus.ObjectPath("' + SESSION + '/transfer0"), '
             'dbus.Dictionary({}, signature="sv"))')


def wait_for(bus, name):
    for _ in range(100):
        if bus.name_has_owner(name):
            return
        time.sleep(0.05)
    sys.exit('no ' + name)


def main():
    log = sys.argv[1]
    with_adapter = '--no-adapter' not in sys.argv
    servers = [subprocess.Popen([PYTHON, '-m', 'dbusmock', '-s', '-l', log + '.bluez', '-t', 'bluez5']),
               subprocess.Popen([PYTHON, '-m', 'dbusmock', '-l', log, 'org.bluez.obex',
                                 '/org/bluez/obex', 'org.bluez.obex.Client1'])]
    system, session = dbus.SystemBus(), dbus.SessionBus()
    wait_for(system, 'org.bluez')
    wait_for(session, 'org.bluez.obex')
    if with_adapter:
        bluez = dbus.Interface(system.get_object('org.bluez', '/org/bluez'), 'org.bluez.Mock')
        bluez.AddAdapter('hci0', 'desk')
        bluez.AddDevice('hci0', '11:22:33:44:55:66', 'Pocket phone')
        bluez.PairDevice('hci0', '11:22:33:44:55:66', 0x5a020c)
        bluez.AddDevice('hci0', '22:33:44:55:66:77', 'Stranger')
    obex = dbus.Interface(session.get_object('org.bluez.obex', '/org/bluez/obex'),
                          'org.freedesktop.DBus.Mock')
    obex.AddMethod('org.bluez.obex.Client1', 'CreateSession', 'sa{sv}', 'o',
                   'self.AddObject("' + SESSION + '", "org.bluez.obex.ObjectPush1", {}, '
                   '[("SendFile", "s", "oa{sv}", ' + repr(SEND_FILE) + ')]); '
                   'ret = dbus.ObjectPath("' + SESSION + '")')
    obex.AddMethod('org.bluez.obex.Client1', 'RemoveSession', 'o', '', '')
    print('ready', flush=True)
    try:
        servers[0].wait()
    finally:
        for s in servers:
            s.terminate()


main()
