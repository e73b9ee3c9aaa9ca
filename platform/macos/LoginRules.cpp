#include "platform/macos/LoginRules.h"

using Status = LoginService::Status;

bool LoginRules::isRegistered(const LoginService& service)
{
    return service.status() == Status::Present;
}

bool LoginRules::add(LoginService& service)
{
    const Status status = service.status();
    return status == Status::Present || (status == Status::Absent && service.add());
}

bool LoginRules::remove(LoginService& service)
{
    return service.status() != Status::Present || service.remove();
}
