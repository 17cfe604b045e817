"""A music player on the session bus with a fault: stand_in_player.py NAME FAULT FILE. It plays FILE
and prints each call that it gets."""

import os
import signal
import sys

import dbus
import dbus.mainloop.glib
import dbus.service
from gi.repository import GLib

PLAYER = "org.mpris.MediaPlayer2.Player"


class Player(dbus.service.Object):
    def __init__(self, bus, fault, values):
        super().__init__(bus, "/org/mpris/MediaPlayer2")
        self.fault = fault
        self.values = values

    @dbus.service.method(dbus.PROPERTIES_IFACE, "ss", "v")
    def Get(self, interface, name):
        return self.values[name]

    @dbus.service.method(PLAYER)
    def Play(self):
        print("Play", flush=True)

    @dbus.service.method(PLAYER)
    def Pause(self):
        print("Pause", flush=True)
        if self.fault == "dies":
            os._exit(1)
        if self.fault == "stops answering":
            os.kill(os.getpid(), signal.SIGSTOP)

    @dbus.service.method(PLAYER, "s")
    def OpenUri(self, address):
        print("OpenUri", address, flush=True)


def values_of(fault, file):
    address = "file://" + file
    metadata = dbus.Dictionary({"xesam:url": address, "mpris:length": "long"}, signature="sv")
    if fault == "addresses that are none":
        metadata["xesam:url"] = dbus.Array([address] * 2000, signature="s")
    if fault == "huge":
        metadata["xesam:url"] = address + "x" * 20_000_000
    if fault == "a stream":
        metadata["xesam:url"] = "http://example.com" + file
    if fault == "wrong types":
        metadata = dbus.Array([1, 2], signature="i")
    return {"PlaybackStatus": "Paused" if fault == "paused" else "Playing", "Metadata": metadata}


def main(name, fault, file):
    dbus.mainloop.glib.DBusGMainLoop(set_as_default=True)
    bus = dbus.SessionBus()
    claimed = dbus.service.BusName("org.mpris.MediaPlayer2." + name, bus)
    player = Player(bus, fault, values_of(fault, file))
    print("ready", flush=True)
    if fault == "never answers":
        signal.pause()
    GLib.MainLoop().run()
    del claimed, player


if __name__ == "__main__":
    main(*sys.argv[1:])
