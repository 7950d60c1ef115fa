#include "harness/VncServer.h"

VncServer::VncServer()
    : PrivateServer({"Xvnc", "-SecurityTypes", "None", "-geometry", "1280x1024", "-depth", "24",
                        "-rfbport", "-1", "-rfbunixpath", path()},
          currentEnvironment())
{
}
