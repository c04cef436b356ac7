<?php

// Finds the packages' classes in this checkout, and the playground's, without Composer.

declare(strict_types=1);

spl_autoload_register(static function (string $class): void {
    $folders = [
        'Zorvel\Playground\\' => '/playground/src/',
        'Zorvel\Tools\\' => '/../packages/tools/src/',
        'Zorvel\\' => '/../packages/view/src/',
    ];
    $prefix = array_find_key($folders, static fn(string $folder, string $prefix): bool => str_starts_with($class, $prefix));
    $file = __DIR__ . ($folders[$prefix] ?? '/') . strtr(substr($class, strlen((string) $prefix)), '\\', '/') . '.php';
    is_file($file) && require_once $file;
});
