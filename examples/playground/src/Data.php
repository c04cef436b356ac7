<?php

declare(strict_types=1);

namespace Zorvel\Playground;

use JsonException;

/** The data of a page as it is typed: a JSON object, or a PHP array as in the documents. */
final readonly class Data
{
    /**
     * @return array<array-key, mixed>
     * @throws InvalidData
     */
    public static function read(string $text): array
    {
        $data = match (trim($text)[0] ?? '') {
            '' => [],
            '{' => self::ofJson($text),
            default => PhpLiteral::read($text),
        };

        return is_array($data) ? $data : throw new InvalidData('The data is no array and no object');
    }

    private static function ofJson(string $json): mixed
    {
        try {
            return json_decode($json, true, flags: JSON_THROW_ON_ERROR);
        } catch (JsonException $error) {
            throw new InvalidData("The data is no JSON: {$error->getMessage()}");
        }
    }
}
