# Apache's event MPM: one process of many threads, on 127.0.0.1 only. A template of zorvel.
ServerRoot "{root}"
ServerName 127.0.0.1
Listen 127.0.0.1:{port}
PidFile apache.pid
ErrorLog error.log
Include stack.conf
{optional user}User {user}
Group {user}{/optional}

{dynamic modules}LoadModule {[*]}_module {*}
{/dynamic}
PHPIniDir "{root}/{ini}"
TypesConfig /etc/mime.types

# More threads than the client has connections. A new process starts beside one that is on its way out.
StartServers 1
ServerLimit 4
ThreadsPerChild 32
MaxRequestWorkers 128
MinSpareThreads 1
MaxSpareThreads 128
MaxConnectionsPerChild 0
MaxKeepAliveRequests 0
KeepAliveTimeout 60

<Directory />
    Require all granted
</Directory>
<FilesMatch \.php$>
    SetHandler application/x-httpd-php
</FilesMatch>
DirectoryIndex index.php
{dynamic host,hosts}
<VirtualHost *:{port}>
    ServerName {host::[*]}
    ServerAlias {host::[*]}.localhost
    DocumentRoot "{host::*::folder}"
    FallbackResource /index.php
    {dynamic host::*::settings}php_admin_value {[*]} "{*}"
    {/dynamic}
</VirtualHost>
{/dynamic}
