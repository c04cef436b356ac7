<?php

// One page of pages.php and a small one after it, whatever became of the first: ?page=NAME&token=TOKEN.
// Without a name: the names, by group.
declare(strict_types=1);

/** @var array<string, array<string, Closure(string): (string|null)>> $pages */
$pages = require __DIR__ . '/pages.php';
if (!isset($_GET['page'])) {
    header('Content-Type: application/json');
    exit(json_encode(array_map(fn(array $group): array => array_keys($group), $pages), JSON_THROW_ON_ERROR));
}

['page' => $name, 'token' => $token] = $_GET;
assert(is_string($name) && is_string($token));
set_error_handler(function (int $level, string $message): bool {
    echo "[$message]";
    return true;
});
register_shutdown_function(function () use ($token): void {
    echo "\n", zorvel('{htmlspecialchars token} is {token}', ['token' => $token], true), "\n";
});
echo array_merge(...array_values($pages))[$name]($token) ?? 'null';
