<?php

// The playground's one entry: pages of strangers' templates, the recipes, and the files of its own page.

declare(strict_types=1);

use Zorvel\Playground\Recipes;
use Zorvel\Playground\Sandbox;

require dirname(__DIR__) . '/autoload.php';

const MOST_BYTES = 256 << 10;

// The frame with the page inherits the policy: it loads nothing, from nowhere.
header("Content-Security-Policy: default-src 'none'; script-src 'self'; style-src 'self' 'unsafe-inline'; img-src data:; "
    . "connect-src 'self'; form-action 'none'; base-uri 'none'; frame-ancestors 'none'");
header('X-Content-Type-Options: nosniff');
header('X-DNS-Prefetch-Control: off');
header('Referrer-Policy: no-referrer');
header('Cache-Control: no-cache');

/** @var string $uri */
$uri = $_SERVER['REQUEST_URI'];
$name = substr((string) parse_url($uri, PHP_URL_PATH), strlen('/playground/'));
[$type, $body] = match ($name) {
    'render' => ['application/json', rendered()],
    'recipes' => ['application/json', json(new Recipes(__DIR__ . '/../../docs/recipes.md')->all())],
    default => asset($name === '' ? 'index.html' : $name),
};
header("Content-Type: $type; charset=utf-8");
echo $body;

/** Another site's page can send a form here, but not JSON. */
function rendered(): string
{
    $job = (string) file_get_contents('php://input', length: MOST_BYTES + 1);
    if ($_SERVER['REQUEST_METHOD'] !== 'POST' || ($_SERVER['CONTENT_TYPE'] ?? '') !== 'application/json') {
        http_response_code(415);
        return json(['error' => ['message' => 'Send it as JSON']]);
    }
    if (strlen($job) > MOST_BYTES) {
        http_response_code(413);
        return json(['error' => ['message' => 'Templates and data of more than ' . (MOST_BYTES >> 10) . ' KB']]);
    }
    return json(new Sandbox()->render($job));
}

/** @return array{string, string} */
function asset(string $name): array
{
    $types = ['html' => 'text/html', 'css' => 'text/css', 'js' => 'text/javascript'];
    $type = $types[pathinfo($name, PATHINFO_EXTENSION)] ?? null;
    foreach ([__DIR__ . '/public', dirname(__DIR__, 2) . '/build/playground'] as $folder) {
        if ($type !== null && basename($name) === $name && is_file("$folder/$name")) {
            return [$type, (string) file_get_contents("$folder/$name")];
        }
    }
    http_response_code(404);
    return ['text/plain', 'Not here'];
}

function json(mixed $value): string
{
    return json_encode($value, JSON_INVALID_UTF8_SUBSTITUTE | JSON_THROW_ON_ERROR);
}
