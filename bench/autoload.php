<?php

declare(strict_types=1);

error_reporting(E_ALL & ~E_DEPRECATED); // some of the other engines are older than PHP 8.4
ini_set('display_errors', 'stderr');

is_file(__DIR__ . '/vendor/autoload.php') && require __DIR__ . '/vendor/autoload.php';
spl_autoload_register(static function (string $class): void {
    $file = __DIR__ . '/src/' . strtr(substr($class, strlen('Zorvel\Bench\\')), '\\', '/') . '.php';
    str_starts_with($class, 'Zorvel\Bench\\') && is_file($file) && require $file;
});
