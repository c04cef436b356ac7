; The PHP of the server and of the command line that it is compared with. A template of zorvel.
zend_extension = opcache
{optional extension}extension = {extension}{/optional}
include_path = "{root}/templates:{here}/templates"
sys_temp_dir = "{root}/tmp"
display_errors = 1
html_errors = 0
log_errors = 0
zend.exception_ignore_args = 1
