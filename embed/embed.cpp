#include "embed.h"

#include <sapi/embed/php_embed.h>

#include "engine/guard.h"
#include "ext/module.h"

namespace embed
{

namespace
{

thread_local std::string printed;

size_t print(const char* text, size_t length)
{
    printed.append(text, length);
    return length;
}

std::string settings;

/// PHP has put settings of its own in place of the module's.
int startWithModule(sapi_module_struct* module)
{
    settings.insert(0, module->ini_entries);
    module->ini_entries = settings.c_str();
    return php_module_startup(module, &zorvel_module_entry);
}

} // namespace

void start(const char* moreSettings)
{
    settings = std::string("display_errors=1\nlog_errors=0\n") + moreSettings + "\n";
    php_embed_module.startup = startWithModule;
    php_embed_module.ub_write = print;
    php_embed_module.php_ini_ignore = 1;
    php_embed_init(0, nullptr);
    ZEND_TSRMLS_CACHE_UPDATE();
    php_request_shutdown(nullptr);
}

void stop()
{
    php_request_startup();
    php_embed_shutdown();
}

Request::Request()
{
    php_request_startup();
}

Request::~Request()
{
    php_request_shutdown(nullptr);
}

RequestThread::RequestThread()
{
    ts_resource(0);
    ZEND_TSRMLS_CACHE_UPDATE();
}

RequestThread::~RequestThread()
{
    ts_free_thread();
}

std::string run(const std::string& code)
{
    printed.clear();
    zend_try
    {
        zend_eval_stringl_ex(code.data(), code.size(), nullptr, "test", true);
        php_output_flush_all();
    }
    zend_end_try();
    return printed;
}

std::string request(const std::string& code)
{
    {
        const Request request;
        run(code);
    }
    return printed;
}

zval evaluate(const std::string& expression)
{
    zval value;
    ZVAL_NULL(&value);
    zend_eval_stringl(expression.data(), expression.size(), &value, "test");
    return value;
}

} // namespace embed
