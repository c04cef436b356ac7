<?php

// The router of script/demo --serve: the playground below /playground, the shop everywhere else.

declare(strict_types=1);

/** @var string $uri */
$uri = $_SERVER['REQUEST_URI'];
if (preg_match('~^/playground(?=[/?]|$)~', $uri) !== 1) {
    return false;
}
require __DIR__ . '/playground/index.php';
