#pragma once

#include <string>

#include <php.h>

/// PHP's embedded engine with the module built in. Started once per process; its requests come one after the
/// other, on the main thread or on threads of their own.
namespace embed
{

/// Settings are lines of php.ini.
void start(const char* settings = "");
void stop();

/// A request on this thread, from construction to destruction.
class Request
{
public:
    Request();
    Request(const Request&) = delete;
    Request& operator=(const Request&) = delete;
    ~Request();
};

/// A thread other than the main one that runs requests, from construction to destruction.
class RequestThread
{
public:
    RequestThread();
    RequestThread(const RequestThread&) = delete;
    RequestThread& operator=(const RequestThread&) = delete;
    ~RequestThread();
};

/// Runs PHP code in this thread's request.
/// @return what it printed, fatal errors included
std::string run(const std::string& code);

/// Runs PHP code as a request of its own.
/// @return what it printed, shutdown functions and destructors included
std::string request(const std::string& code);

/// The value of a PHP expression; the caller's to destroy.
zval evaluate(const std::string& expression);

} // namespace embed
