<?php

declare(strict_types=1);

error_reporting(E_ALL & ~E_DEPRECATED); // some of the other engines are older than PHP 8.4
ini_set('display_errors', 'stderr');

is_file(__DIR__ . '/vendor/autoload.php') && require __DIR__ . '/vendor/autoload.php';
spl_autoload_register(static function (string $class): void {
    foreach (['Zorvel\Bench\\' => '/src/', 'Zorvel\Tools\\' => '/../packages/tools/src/', 'Zorvel\\' => '/../packages/view/src/'] as $prefix => $folder) {
        $file = __DIR__ . $folder . strtr(substr($class, strlen($prefix)), '\\', '/') . '.php';
        str_starts_with($class, $prefix) && is_file($file) && require_once $file;
    }
});
