<?php

declare(strict_types=1);

namespace Zorvel\Bench;

use RuntimeException;

error_reporting(E_ALL & ~E_DEPRECATED);
ini_set('display_errors', 'stderr');

is_file(__DIR__ . '/vendor/autoload.php') && require __DIR__ . '/vendor/autoload.php';
spl_autoload_register(static function (string $class): void {
    $file = __DIR__ . '/src/' . strtr(substr($class, strlen(__NAMESPACE__) + 1), '\\', '/') . '.php';
    str_starts_with($class, __NAMESPACE__) && is_file($file) && require $file;
});

try {
    Program::run(getopt('', ['memory:', 'only:', 'page:', 'picture:', 'quick', 'repeat:', 'targets']));
} catch (RuntimeException $failure) {
    fwrite(STDERR, $failure->getMessage() . "\n");
    exit(1);
}
